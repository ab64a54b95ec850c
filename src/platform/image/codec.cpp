#include "platform/image/codec.h"

#include "base/errors.h"
#include "platform/modules/module.h"

namespace mrd::image {

const Codec& codec()
{
  static const Codec& loaded =
      reinterpret_cast<CodecFunction>(modules::functionOf(MRD_IMAGE_MODULE, kCodecFunction, base::ErrorNumber::InvalidPicture))();
  return loaded;
}

} // namespace mrd::image
