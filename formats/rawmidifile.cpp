#include "formats/rawmidifile.h"
