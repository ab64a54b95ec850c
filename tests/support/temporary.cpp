#include "support/temporary.h"
