#pragma once
// Reading damaged drawing files into databases. The second door: what can be put right safely is put right,
// what cannot be is left out, and all of it is told.
#include "DxfFindings.h"
#include "DxfReader.h"
#include "OdError.h"

/// A file from which no drawing could be recovered. The sentence is that of the strict reader.
class OdDbDxfRecoverError : public OdError_FileException {
public:
  OdDbDxfRecoverError(const OdError& error, std::vector<OdDbDxfFinding> found)
      : OdError_FileException(error.code(), error.description()), m_findings(std::move(found)) {}
  /// What was found before that.
  const std::vector<OdDbDxfFinding>& findings() const { return m_findings; }

private:
  std::vector<OdDbDxfFinding> m_findings;
};

/// Reads a drawing file, damaged or not, into a database, which must be empty; repairs it, and audits the
/// drawing (see odDbAudit). Records that were in order keep their bytes. Memory: beyond the strict reader's,
/// at most about twice the file. Throws OdDbDxfRecoverError, after which the database is of no further use,
/// and OdError_FileException for a file that cannot be opened.
std::vector<OdDbDxfFinding> odDbRecoverFile(OdDbDatabase& database, const OdString& path,
                                            const OdDbDxfReadOptions& options = {});

/// The same for a file that is in memory already; see odDbReadBytes.
std::vector<OdDbDxfFinding> odDbRecoverBytes(OdDbDatabase& database, std::string_view bytes,
                                             std::shared_ptr<void> owner, const OdString& name,
                                             const OdDbDxfReadOptions& options = {});
