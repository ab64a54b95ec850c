#include "frame/paths/paths.h"
