#include "frame/project/project.h"
