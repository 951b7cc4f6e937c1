#pragma once
#include "OdPlatform.h"

/// The enumerations of the drawing interface. Values that drawing files store are the files' own.
namespace OdDb {
enum OpenMode { kNotOpen = -1, kForRead = 0, kForWrite = 1, kForNotify = 2 };
// Those with a type of their own hold whatever a drawing file says.
enum TextHorzMode : int {
  kTextLeft = 0,
  kTextCenter = 1,
  kTextRight = 2,
  kTextAlign = 3,
  kTextMid = 4,
  kTextFit = 5
};
enum TextVertMode : int { kTextBase = 0, kTextBottom = 1, kTextVCenter = 2, kTextTop = 3 };
enum Visibility : int { kInvisible = 1, kVisible = 0 };
/// Hundredths of a millimetre, or one of the three names.
enum LineWeight : int {
  kLnWtByLayer = -1,
  kLnWtByBlock = -2,
  kLnWtByLwDefault = -3,
  kLnWt000 = 0,
  kLnWt025 = 25
};
enum PlotStyleNameType : int {
  kPlotStyleNameByLayer = 0,
  kPlotStyleNameByBlock = 1,
  kPlotStyleNameIsDictDefault = 2,
  kPlotStyleNameById = 3
};
enum LineSpacingStyle : int { kAtLeast = 1, kExactly = 2 };
/// Release of a drawing, in the order of their appearance.
enum DwgVersion {
  vUnknown,
  vAC02, ///< before R9
  vAC04, ///< R9
  vAC06, ///< R10
  vAC09, ///< R11, R12
  vAC12, ///< R13
  vAC14, ///< R14
  vAC15, ///< 2000
  vAC18, ///< 2004
  vAC21, ///< 2007, from here on texts are UTF-8
  vAC24, ///< 2010
  vAC27, ///< 2013
  vAC32, ///< 2018
};
} // namespace OdDb
