#include "formats/metasong.h"
