#include "platform/html/document.h"
