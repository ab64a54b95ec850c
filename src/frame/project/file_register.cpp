#include "frame/project/file_register.h"
