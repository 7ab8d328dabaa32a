// Gives the target of the precompiled headers something to compile.
