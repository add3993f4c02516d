#include "qsvgen.hpp"
