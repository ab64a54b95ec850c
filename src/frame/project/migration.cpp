#include "frame/project/migration.h"
