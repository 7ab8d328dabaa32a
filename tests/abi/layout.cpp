// Every class of the binary interface, for its debug information: see abi/layout.txt.

#include <utils/utils.h>

// Which compilers make only when they need it.
template class utils::singleton::NeverDestroyed<COsMutex>;
