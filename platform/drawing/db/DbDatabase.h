#pragma once
#include "CmColor.h"
#include "DbObject.h"
#include "Ge/GeMatrix3d.h"
#include <memory>

class OdDbStore;
class OdDbBlockTableRecord;

/// A drawing: its objects, tables, dictionaries, header variables, and its undo log.
class OdDbDatabase : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbDatabase);

public:
  OdDbDatabase();
  ~OdDbDatabase() override;

  // --- files (defined with the file readers and writers) ---
  /// An empty drawing of the newest release, in millimetres.
  static OdSmartPtr<OdDbDatabase> createBlank();
  /// Reads a drawing into this database, which must be empty. Throws OdError_FileException that names file,
  /// line and reason.
  void readFile(const OdString& path);
  /// Writes the drawing in the release and form it was read in. The new file is complete before it replaces
  /// an old one. Throws OdError_FileException; the old file then stands untouched.
  void writeFile(const OdString& path);
  /// The path the drawing was read from or last written to; empty for a new drawing.
  OdString getFilename() const;
  OdDb::DwgVersion originalFileVersion() const;

  // --- objects ---
  /// Appends an object that belongs to no database. Entities go to blocks through
  /// OdDbBlockTableRecord::appendOdDbEntity instead. Throws eAlreadyInDb, eHandleExists.
  OdDbObjectId addOdDbObject(OdDbObject* object, OdDbObjectId owner, OdDbHandle handle = {});
  /// The object with this handle; null when there is none.
  OdDbObjectId getOdDbObjectId(OdDbHandle handle) const;
  /// Copies objects, and what they own, under a new owner (a block for entities). Copied references to copied
  /// objects lead to the copies; all others stay. Every source and its copy are noted in `map`.
  void deepCloneObjects(const OdDbObjectIdArray& ids, OdDbObjectId owner, OdDbIdMapping& map);

  // --- tables, dictionaries and spaces; null where a damaged drawing has none ---
  OdDbObjectId getBlockTableId() const { return tableId("BLOCK_RECORD"); }
  OdDbObjectId getLayerTableId() const { return tableId("LAYER"); }
  OdDbObjectId getLinetypeTableId() const { return tableId("LTYPE"); }
  OdDbObjectId getTextStyleTableId() const { return tableId("STYLE"); }
  OdDbObjectId getDimStyleTableId() const { return tableId("DIMSTYLE"); }
  OdDbObjectId getUCSTableId() const { return tableId("UCS"); }
  OdDbObjectId getViewTableId() const { return tableId("VIEW"); }
  OdDbObjectId getViewportTableId() const { return tableId("VPORT"); }
  OdDbObjectId getRegAppTableId() const { return tableId("APPID"); }
  OdDbObjectId getNamedObjectsDictionaryId() const;
  /// The dictionaries of layouts and plot styles; made when asked to and missing.
  OdDbObjectId getLayoutDictionaryId(bool createIfNotFound = true);
  OdDbObjectId getPlotStyleNameDictionaryId(bool createIfNotFound = true);
  OdDbObjectId getModelSpaceId() const;
  OdDbObjectId getPaperSpaceId() const;
  /// The block record that new entities go to: model space, or the paper space of the current layout.
  OdDbObjectId getActiveLayoutBTRId() const;
  /// The viewport that is active: in a layout, the one entered (number > 1) or the sheet itself (number 1);
  /// in model space the null id.
  OdDbObjectId activeViewportId() const;
  /// The viewport that stands for the sheet of the current layout; null in model space.
  OdDbObjectId sheetViewportId() const;
  /// Makes a viewport of the current layout the active one (null: the sheet itself). Not a property of the
  /// file. Throws eInvalidInput for anything else.
  void setActiveViewportId(OdDbObjectId viewport);
  /// Makes the layout with this name current. Throws eKeyNotFound.
  void setCurrentLayout(const OdString& name);
  OdString currentLayoutName() const;

  // --- defaults of new entities, and other header variables ---
  OdDbObjectId getCLAYER() const;
  void setCLAYER(OdDbObjectId layer);
  OdCmColor getCECOLOR() const;
  void setCECOLOR(const OdCmColor& color);
  OdDbObjectId getCELTYPE() const;
  void setCELTYPE(OdDbObjectId linetype);
  double getCELTSCALE() const;
  OdDb::LineWeight getCELWEIGHT() const;
  OdDbObjectId getTEXTSTYLE() const;
  void setTEXTSTYLE(OdDbObjectId style);
  double getTEXTSIZE() const;
  /// How points are shown: 0 a dot, 1 nothing, 2 a plus, 3 a cross, 4 a tick; + 32 a circle, + 64 a square
  /// around it.
  int getPDMODE() const;
  void setPDMODE(int mode);
  /// How large: drawing units; 0 and less are per cent of the height of the view, 0 meaning 5.
  double getPDSIZE() const;
  void setPDSIZE(double size);
  bool getTILEMODE() const;
  void setTILEMODE(bool modelSpace);
  /// Units: LUNITS, LUPREC, AUNITS, AUPREC, ANGBASE (radians), ANGDIR.
  int getLUNITS() const;
  int getLUPREC() const;
  int getAUNITS() const;
  int getAUPREC() const;
  double getANGBASE() const;
  bool getANGDIR() const;
  /// The user coordinate system of the current space: origin and axes in world coordinates.
  OdGePoint3d getUCSORG() const;
  OdGeVector3d getUCSXDIR() const;
  OdGeVector3d getUCSYDIR() const;
  void setUCS(const OdGePoint3d& origin, const OdGeVector3d& xAxis, const OdGeVector3d& yAxis);
  /// User coordinates to world coordinates.
  OdGeMatrix3d ucsToWorld() const;
  /// Any header variable by name with its $; null when the drawing has none.
  OdResBufPtr getSysVar(const OdString& name) const;
  void setSysVar(const OdString& name, const OdResBuf* value);

  // --- undo: everything that changed while recording was on (it is on from the start) ---
  void startUndoRecord();
  void setUndoMark();
  /// Takes back the last record. False when there is nothing to take back.
  bool undo();
  /// Takes back everything since the last mark.
  bool undoBack();
  /// Takes back everything since the last record start, also when that is nothing, and forgets the record.
  void cancelUndoRecord();
  /// Brings back what the last undo took; any other change in between forgets it.
  bool redo();
  bool hasUndo() const;
  bool hasRedo() const;
  void clearUndo();
  void disableUndoRecording(bool disable);

  // --- transactions; they nest ---
  void startTransaction();
  void endTransaction();
  void abortTransaction();
  int numActiveTransactions() const;

  OdDbStore& store() const { return *m_store; }

private:
  OdDbObjectId tableId(const char* name) const;
  std::unique_ptr<OdDbStore> m_store;
  OdDbObjectId m_activeViewport;
};
using OdDbDatabasePtr = OdSmartPtr<OdDbDatabase>;
