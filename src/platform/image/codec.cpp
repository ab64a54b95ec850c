#include "platform/image/codec.h"

#include "base/errors.h"

#include <dlfcn.h>

namespace mrd::image {
namespace {

const Codec& loadCodec()
{
  // Never unloaded: the library is there for the whole process.
  void* const module = ::dlopen(MRD_IMAGE_MODULE, RTLD_NOW | RTLD_LOCAL);
  void* const function = module ? ::dlsym(module, kCodecFunction) : nullptr;
  if (!function)
    throw base::Error(base::ErrorNumber::InvalidPicture, ::dlerror());
  return reinterpret_cast<CodecFunction>(function)();
}

} // namespace

const Codec& codec()
{
  static const Codec& loaded = loadCodec();
  return loaded;
}

} // namespace mrd::image
