#include <utils/gsChangeAspect.h>

namespace utils
{

template class Std_Singleton<Gs_ChangeAspect>;

Gs_ChangeAspect::Gs_ChangeAspect() : Gs_Aspect("Gs_ChangeAspect") {}

Gs_ChangeAspect::~Gs_ChangeAspect() = default;

}  // namespace utils
