#include "frame/settings/fields.h"
