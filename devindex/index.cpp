#include "devindex/index.h"
