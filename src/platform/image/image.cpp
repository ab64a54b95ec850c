#include "platform/image/image.h"
