#pragma once

#include "dct4_bodies/analysis_1.hpp"
#include "dct4_bodies/analysis_2.hpp"
#include "dct4_bodies/analysis_3.hpp"
#include "dct4_bodies/analysis_4.hpp"
#include "dct4_bodies/analysis_5.hpp"
#include "dct4_bodies/analysis_6.hpp"
