#pragma once

// The names that a deck without parts gets when it is turned into an assembly of one part: users meet them
// in results alone.

inline constexpr char inp_generatedPart[] = "PART-1";
inline constexpr char inp_generatedInstance[] = "PART-1-1";
inline constexpr char inp_generatedAssembly[] = "Assembly-1";
/// The part of what belongs to no other part while the deck is being divided.
inline constexpr char inp_fakePart[] = "FAKE";
