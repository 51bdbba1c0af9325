#include "formats/lzhuff.h"
