// Message handlers of the log.
#pragma once
