#include "qsvgen.h"
