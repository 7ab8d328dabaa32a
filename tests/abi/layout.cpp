// Every class of the binary interface, for its debug information: see abi/layout.txt.

#include <utils/utils.h>
