#include "platform/files/path.h"
