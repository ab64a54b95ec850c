#include "platform/dao/dialect.h"
