#include "formats/mp3header.h"
