#include "platform/modules/module.h"

#include <dlfcn.h>

namespace mrd::modules {

void* functionOf(const char* module, const char* name, base::ErrorNumber missing)
{
  void* const handle = ::dlopen(module, RTLD_NOW | RTLD_LOCAL);
  void* const function = handle ? ::dlsym(handle, name) : nullptr;
  if (!function)
    throw base::Error(missing, ::dlerror());
  return function;
}

} // namespace mrd::modules
