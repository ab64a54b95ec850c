#include "platform/dao/byte_store.h"
