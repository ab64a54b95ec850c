#include "platform/files/user_settings.h"
