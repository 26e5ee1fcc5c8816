#include "WebEngine.h"
