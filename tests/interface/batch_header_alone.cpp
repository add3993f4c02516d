#include "qsvgen_batch.h"
