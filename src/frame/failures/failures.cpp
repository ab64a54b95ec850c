#include "frame/failures/failures.h"
