#pragma once
#include "OdString.h"

namespace attext {

/// A number as extraction files show it, with five significant digits; the text of the Windows C runtime's
/// _gcvt on every platform:
/// - Rounding is to the nearest, ties away from zero, and the rounded value decides the notation.
/// - From 0.1 up to 99999 the notation is fixed ("12.5", "0.25"), elsewhere exponential with a sign and at
///   least three digits in the exponent ("1.2346e+005", "1.e-004"). Zero is fixed.
/// - Trailing zeros of the fraction go, the decimal point stays ("1.", "12345.", "0.").
/// - A negative zero keeps its sign ("-0.").
/// Infinities and values that are no number have no text: the result is empty.
OdString numberText(double value);

} // namespace attext
