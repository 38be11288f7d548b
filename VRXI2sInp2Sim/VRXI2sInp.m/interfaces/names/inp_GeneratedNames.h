#pragma once

// The names in an assembly that a deck without parts is turned into; users meet them in results alone.
// While such a deck is being read its nodes, elements and sets stand under inp_Types::fakeName().

inline constexpr char inp_generatedPart[] = "PART-1";
inline constexpr char inp_generatedInstance[] = "PART-1-1";
inline constexpr char inp_generatedAssembly[] = "Assembly-1";
