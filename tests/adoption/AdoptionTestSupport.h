// Shared set-up of the adoption tests: the module's classes registered once, the module's
// converter and definition look-up installed as the host's while a test runs, and the real
// drawings that carry another program's parametric blocks, read from the corpus (tests skip when
// it is absent). The oracle's steps live here too: what a reference records, read before
// adoption, and a new reference given those values as a user gives them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "adoption/CJbOutsideBlockConverterUtils.h"
#include "adoption/CJbOutsideDefinitionLookup.h"
#include "adoption/CJbOutsideDrawing.h"
#include "adoption/CJbOutsideReference.h"
#include "platform/db/DbTestSupport.h"
#include "platform/host/CJbScopedService.h"

// A reference of an outside block as the other program left it: the block it shows and the state
// it records for each parameter.
struct RecordedReference {
  OdDbObjectId reference;
  OdDbObjectId block;
  std::vector<std::pair<CJbOutsideBlock::Parameter, CJbOutsideReference::ParameterState>> states;
};

class AdoptionTest : public DbTest {
 protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite();
  void SetUp() override;
  void TearDown() override;

  // The corpus drawings that carry outside blocks.
  static const std::vector<std::string>& OutsideDrawings();
  // Reads a corpus drawing into db.
  void Read(const std::string& name);
  // Reads a corpus drawing (an ASCII one) into db with each text replaced by its substitute, so
  // that a test sees data the corpus does not hold.
  void ReadEdited(const std::string& name,
                  const std::vector<std::pair<std::string, std::string>>& edits);

  // Every reference of the outside block, as recorded, by handle.
  std::vector<RecordedReference> Record(const CJbOutsideDrawing& drawing,
                                        const OdDbObjectId& blockId);
  // A new reference of `block` given the recorded values through the editor helper, one
  // property at a time, as `jbcb set` gives them; the block it shows afterwards.
  OdDbObjectId ShowWithValues(const OdDbObjectId& block, const RecordedReference& values);

 private:
  CJbOutsideBlockConverterUtils m_converter;
  CJbOutsideDefinitionLookup m_lookup;
  std::unique_ptr<CJbScopedService<CJbCustBlockConverterUtils>> m_converterGuard;
  std::unique_ptr<CJbScopedService<CJbUtils>> m_lookupGuard;
};
