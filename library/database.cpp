#include "library/database.h"
