# ./dev docs

readonly DOCS_PACKAGES=(doxygen)

# Fails for whatever is public and not described.
make_docs()
{
    mkdir -p build/docs
    doxygen docs/Doxyfile
}

## docs
##     Make the reference of the public headers, with the pages beside it, in build/docs/html.
cmd_docs()
{
    (($# == 0)) || usage_error "docs takes nothing, not '$*'"
    need_packages "to make the reference" "${DOCS_PACKAGES[@]}"
    make_docs
    say "docs: build/docs/html/index.html"
}
