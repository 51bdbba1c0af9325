#include "library/songsdbrecord.h"
