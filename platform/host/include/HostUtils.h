#pragma once
// Exports of the host library hostutils: units, the current coordinate system, the active space.
#include "DbObjectId.h"
#include "OdString.h"

class OdDbDatabase;
class OdGeVector3d;

/// Linear units: the values of LUNITS.
enum HostLinearUnits : int {
  kHostScientific = 1,
  kHostDecimal = 2,
  kHostEngineering = 3,
  kHostArchitectural = 4,
  kHostFractional = 5,
};
/// Angular units: the values of AUNITS.
enum HostAngularUnits : int {
  kHostDegrees = 0,
  kHostDms = 1,
  kHostGradians = 2,
  kHostRadians = 3,
  kHostSurveyor = 4
};

/// Reads a length in any of the linear units ("12.5", "1.2E+3", "6'-3 1/2\"", "2 1/4"); a comma serves as
/// decimal mark too. False, with `value` left alone, when the text is no length.
bool hostdbDisToF(const OdChar* text, double& value);
/// Writes a length in drawing units. `units` -1 takes LUNITS, `precision` -1 LUPREC of the drawing.
OdString hostdbRToS(double value, int units, int precision, const OdDbDatabase* database);

/// Reads an angle: a number in `units`, or with the mark of another unit ("45", "45d30'15\"", "50g", "1.57r",
/// "N45d30'E"). The result is in radians, as typed: neither base angle nor direction are applied. False, with
/// `radians` left alone, when the text is no angle.
bool hostdbAngToF(const OdChar* text, int units, double& radians);
/// Writes an angle given in radians counterclockwise from the X axis, counted from the drawing's base angle
/// in its direction. `units` -1 takes AUNITS, `precision` -1 AUPREC.
OdString hostdbAngToS(double radians, int units, int precision, const OdDbDatabase* database);

/// A variable of the drawing that holds a direction or a point, by its name: "UCSXDIR", "UCSYDIR", "UCSORG".
/// False, with `value` left alone, when there is no such variable.
bool hostdbGetVar(const OdDbDatabase* database, const OdChar* name, OdGeVector3d& value);

/// The Z direction of the current coordinate system, in world coordinates.
OdGeVector3d get_UCSZDIR(const OdDbDatabase* database);

/// The block record that commands draw in: model space, the sheet of the current layout, or model space again
/// while a viewport of the layout is entered.
OdDbObjectId getActiveBTRId(const OdDbDatabase* database);
