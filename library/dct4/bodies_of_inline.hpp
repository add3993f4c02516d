#pragma once

#include "dct4_bodies/inline_1.hpp"
#include "dct4_bodies/inline_2.hpp"
#include "dct4_bodies/inline_3.hpp"
#include "dct4_bodies/inline_4.hpp"
#include "dct4_bodies/inline_5.hpp"
