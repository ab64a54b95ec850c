#include "platform/files/files.h"
