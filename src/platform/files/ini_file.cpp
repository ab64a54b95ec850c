#include "platform/files/ini_file.h"
