#include "frame/messages/messages.h"
