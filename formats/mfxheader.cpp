#include "formats/mfxheader.h"
