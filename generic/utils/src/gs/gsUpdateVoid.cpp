#include <utils/gsUpdateVoid.h>

namespace utils
{

template class Gs_UpdateVoid<Gs_Observer>;

}  // namespace utils
