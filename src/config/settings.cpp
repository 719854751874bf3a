#include "config/settings.h"

Settings settings;
