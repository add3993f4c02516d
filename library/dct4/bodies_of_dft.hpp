#pragma once

#include "dct4_bodies/dft_1.hpp"
#include "dct4_bodies/dft_2.hpp"
#include "dct4_bodies/dft_3.hpp"
#include "dct4_bodies/dft_4.hpp"
#include "dct4_bodies/dft_5.hpp"
