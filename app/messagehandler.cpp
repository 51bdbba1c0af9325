#include "app/messagehandler.h"
