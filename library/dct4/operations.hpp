#pragma once

/**
 * @file
 * @brief Operations of the objects of dct4/records.hpp, by class: `___init__` stores parameters and
 * takes the list heads, `_plan` decides the rule and builds what is below, `___del__` gives all of
 * it back, `_mem` foretells what `_plan` takes. What runs a plan is in dct4/compute.hpp.
 */

#include "dct4/records.hpp"

namespace dct4::QSVG_ELEMENT {

/** The longest power of two whose plan takes less than 2^31 bytes. Of lengths beyond the next one,
 * not even the strides are sure to have 32 bits. */
constexpr std::int32_t kLongestPowerOfTwo = 1 << (sizeof(Real) == 4 ? 26 : 25);
extern "C" {

// Constructors return the object, already in its final place in the arena.

env1* DCT4(env1___init__)(env1* node, Arena* arena, std::int32_t length);
env2* DCT4(env2___init__)(env2* node, Arena* arena, const env2_parameters& parameters);
env3* DCT4(env3___init__)(env3* node, Arena* arena, const env3_parameters& parameters);
env5* DCT4(env5___init__)(env5* node, Arena* arena, const env5_parameters& parameters);
env7* DCT4(env7___init__)(env7* node, Arena* arena, const env7_parameters& parameters);
env8* DCT4(env8___init__)(env8* node, Arena* arena, const env8_parameters& parameters);
env9* DCT4(env9___init__)(env9* node, Arena* arena, const env9_parameters& parameters);
envlambda* DCT4(envlambda___init__)(envlambda* object, Arena* arena, std::int32_t numerator,
                                    std::int32_t denominator);
envfCompose* DCT4(envfCompose___init__)(envfCompose* object, Arena* arena,
                                        const envfCompose_parameters& parameters);

// The rule of a node, from the one value that decides it: a length, or for env4 and env8 the
// factor.

std::int32_t DCT4(env1__chooseRule)(std::int32_t length);
std::int32_t DCT4(env4__chooseRule)(std::int32_t factor);
std::int32_t DCT4(env5__chooseRule)(std::int32_t sub_length);
std::int32_t DCT4(env8__chooseRule)(std::int32_t factor);
std::int32_t DCT4(env9__chooseRule)(std::int32_t sub_length);

// qsvStatusOk or qsvStatusBadLength, which leaves standing what was built so far.

QsvStatus DCT4(env1_plan)(EnvObject* object);
QsvStatus DCT4(env2_plan)(EnvObject* object);
QsvStatus DCT4(env3_plan)(EnvObject* object);
QsvStatus DCT4(env4_plan)(EnvObject* object);
QsvStatus DCT4(env5_plan)(EnvObject* object);
QsvStatus DCT4(env7_plan)(EnvObject* object);
QsvStatus DCT4(env8_plan)(EnvObject* object);
QsvStatus DCT4(env9_plan)(EnvObject* object);

void DCT4(env1___del__)(EnvObject* object);
void DCT4(env2___del__)(EnvObject* object);
void DCT4(env3___del__)(EnvObject* object);
void DCT4(env4___del__)(EnvObject* object);
void DCT4(env5___del__)(EnvObject* object);
void DCT4(env7___del__)(EnvObject* object);
void DCT4(env8___del__)(EnvObject* object);
void DCT4(env9___del__)(EnvObject* object);
void DCT4(envlambda___del__)(EnvObject* object);
void DCT4(envfsplit___del__)(EnvObject* object);
void DCT4(envfCompose___del__)(EnvObject* object);

// Bytes, or a negative status. The arithmetic wraps: what comes out negative is refused as well.

std::int32_t DCT4(env1_mem)(std::int32_t length);
std::int32_t DCT4(env2_mem)(std::int32_t factor, std::int32_t blocks);
std::int32_t DCT4(env3_mem)(std::int32_t sub_length, std::int32_t factor,
                            std::int32_t scratch_length);
std::int32_t DCT4(env5_mem)(std::int32_t sub_length, std::int32_t scratch_length);
std::int32_t DCT4(env7_mem)(std::int32_t sub_length, std::int32_t scratch_length);
std::int32_t DCT4(env9_mem)(std::int32_t sub_length, std::int32_t scratch_length);

Real DCT4(envlambda_at)(const CoefficientObject* object, std::int32_t i, std::int32_t j,
                        std::int32_t k);
Real DCT4(envfsplit_at)(const CoefficientObject* object, std::int32_t i, std::int32_t j,
                        std::int32_t k);
Real DCT4(envfCompose_at)(const CoefficientObject* object, std::int32_t r, std::int32_t k,
                          std::int32_t unused);
}

/** The value of a coefficient object, whichever its class. */
Real owng_TFunc_IIIR_at(const CoefficientObject* object, std::int32_t i, std::int32_t j,
                        std::int32_t k);

}  // namespace dct4::QSVG_ELEMENT
