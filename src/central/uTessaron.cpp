#include "uTessaron.h"
