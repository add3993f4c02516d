#pragma once

#include "dct4_bodies/synthesis_1.hpp"
#include "dct4_bodies/synthesis_2.hpp"
#include "dct4_bodies/synthesis_3.hpp"
#include "dct4_bodies/synthesis_4.hpp"
#include "dct4_bodies/synthesis_5.hpp"
#include "dct4_bodies/synthesis_6.hpp"
