#pragma once

/// The mode in which generated identifiers and dates are the same in each
/// run. Callers hold Initializer::singletonMutex.
namespace Vantry { namespace Types { namespace Factories { namespace DeterministicMode {

/// Whether the environment variable "deterministic_uids" is exactly "true".
bool isOn();

/// Turns the mode on, numbers starting anew, or off.
void turn(bool on);

/// The next number; all identifiers share one count.
unsigned int nextNumber();

}}}}
