#pragma once
// The integer types and the character type of the drawing library.
#include <cstddef>
#include <cstdint>

using OdInt8 = std::int8_t;
using OdUInt8 = std::uint8_t;
using OdInt16 = std::int16_t;
using OdUInt16 = std::uint16_t;
using OdInt32 = std::int32_t;
using OdUInt32 = std::uint32_t;
using OdInt64 = std::int64_t;
using OdUInt64 = std::uint64_t;
using OdIntPtr = std::intptr_t;
using OdUIntPtr = std::uintptr_t;
/// One unit of a wide string: UTF-16 on Windows, UTF-32 elsewhere.
using OdChar = wchar_t;

/// Pi, and the conversions between the radians of the library and the degrees of drawing files.
inline constexpr double OdaPI = 3.14159265358979323846;
inline constexpr double OdaPI2 = OdaPI / 2;
inline constexpr double Oda2PI = OdaPI * 2;
inline constexpr double OdaToDegree(double radians) { return radians * (180.0 / OdaPI); }
inline constexpr double OdaToRadian(double degrees) { return degrees * (OdaPI / 180.0); }
