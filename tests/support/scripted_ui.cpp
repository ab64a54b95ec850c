#include "support/scripted_ui.h"
