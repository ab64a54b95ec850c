#include "platform/dao/value.h"
