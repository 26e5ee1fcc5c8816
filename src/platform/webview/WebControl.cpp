#include "WebControl.h"
