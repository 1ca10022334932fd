#include "AdoptionTestSupport.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "actions/CJbCustBlockActionClasses.h"
#include "adoption/CJbOutsideBlockReader.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "parameters/CJbCustBlockParameterValueInfo.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "platform/dxf/DxfFile.h"
#include "storage/CJbCustBlockEditorHelper.h"
#include "storage/CJbCustBlockStorageClasses.h"

namespace {
// Our parameter whose first value goes by `property`.
CJbCustBlockParameterPtr parameterNamed(const CJbDbCustBlockGraph* graph,
                                        const OdString& property) {
  for (int id : graph->GetAllNodeIds()) {
    const CJbCustBlockParameterPtr parameter =
        CJbCustBlockParameter::cast(graph->GetNode(id).get());
    if (!parameter.isNull() && parameter->GetValueInfoCount() > 0 &&
        parameter->GetValueInfo(0)->GetName() == property)
      return parameter;
  }
  return CJbCustBlockParameterPtr();
}

// The recorded state as the value a user types: a length, a flip state or a state's index.
OdResBufPtr valueOf(const CJbOutsideBlock::Parameter& parameter,
                    const CJbOutsideReference::ParameterState& state,
                    const CJbCustBlockParameter* ours) {
  switch (parameter.kind) {
    case CJbOutsideBlock::ParameterKind::kLinear:
      return OdResBuf::newRb(OdResBuf::kRtDouble, state.points[0].distanceTo(state.points[1]));
    case CJbOutsideBlock::ParameterKind::kFlip:
      return OdResBuf::newRb(OdResBuf::kRtInt32, state.flipped ? 1 : 0);
    case CJbOutsideBlock::ParameterKind::kVisibility:
      break;
  }
  return OdResBuf::newRb(
      OdResBuf::kRtInt32,
      CJbCustBlockVisibilityParameter::cast(ours)->GetStateIndex(state.visibilityState));
}
}  // namespace

void AdoptionTest::SetUpTestSuite() {
  CJbCustBlockCoreClasses::RxInit();
  CJbCustBlockParameterClasses::RxInit();
  CJbCustBlockActionClasses::RxInit();
  CJbCustBlockStorageClasses::RxInit();
}

void AdoptionTest::TearDownTestSuite() {
  CJbCustBlockStorageClasses::RxUninit();
  CJbCustBlockActionClasses::RxUninit();
  CJbCustBlockParameterClasses::RxUninit();
  CJbCustBlockCoreClasses::RxUninit();
}

void AdoptionTest::SetUp() {
  DbTest::SetUp();
  m_converterGuard = std::make_unique<CJbScopedService<CJbCustBlockConverterUtils>>(&m_converter);
  m_lookupGuard = std::make_unique<CJbScopedService<CJbUtils>>(&m_lookup);
  if (!std::filesystem::is_directory(JBCB_CORPUS_DIR))
    GTEST_SKIP() << "no DXF corpus at " << JBCB_CORPUS_DIR << "; the real-file checks are skipped";
}

void AdoptionTest::TearDown() {
  m_lookupGuard.reset();
  m_converterGuard.reset();
}

const std::vector<std::string>& AdoptionTest::OutsideDrawings() {
  static const std::vector<std::string> names{"acadsharp_dyn_flip.dxf",
                                              "acadsharp_dyn_linear.dxf",
                                              "acadsharp_dyn_visibility.dxf",
                                              "acadsharp_sample_AC1015_ascii.dxf",
                                              "acadsharp_sample_AC1018_binary.dxf",
                                              "acadsharp_sample_AC1032_binary.dxf",
                                              "ezdxf_dynblk1.dxf"};
  return names;
}

void AdoptionTest::Read(const std::string& name) {
  db = DxfFile::read((std::filesystem::path(JBCB_CORPUS_DIR) / name).string());
}

void AdoptionTest::ReadEdited(const std::string& name,
                              const std::vector<std::pair<std::string, std::string>>& edits) {
  std::ifstream file(std::filesystem::path(JBCB_CORPUS_DIR) / name, std::ios::binary);
  std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  for (const auto& [from, to] : edits) {
    std::size_t at = text.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    for (; at != std::string::npos; at = text.find(from, at + to.size()))
      text.replace(at, from.size(), to);
  }
  db = DxfFile::readFromMemory(text);
}

std::vector<RecordedReference> AdoptionTest::Record(const CJbOutsideDrawing& drawing,
                                                    const OdDbObjectId& blockId) {
  const CJbOutsideBlock block = CJbOutsideBlockReader::Read(blockId);
  std::vector<RecordedReference> recorded;
  for (const OdDbObjectId& id : drawing.ReferencesOf(blockId)) {
    const CJbOutsideReference reference = CJbOutsideReference::Read(id);
    RecordedReference entry{id, open<OdDbBlockReference>(id)->blockTableRecord(), {}};
    for (const CJbOutsideBlock::Parameter& parameter : block.parameters)
      entry.states.emplace_back(parameter, reference.StateOf(parameter));
    recorded.push_back(entry);
  }
  return recorded;
}

OdDbObjectId AdoptionTest::ShowWithValues(const OdDbObjectId& block,
                                          const RecordedReference& values) {
  const OdDbObjectId reference = addReference(db->getModelSpaceId(), block);
  for (const auto& [parameter, state] : values.states) {
    CJbCustBlockEditorHelper helper(reference);
    CJbDbCustBlockGraphPtr graph = helper.GetGraph(OdDb::kForWrite);
    if (graph.isNull()) {
      ADD_FAILURE() << "the reference shows no customizable block";
      break;
    }
    const CJbCustBlockParameterPtr ours = parameterNamed(graph.get(), parameter.property);
    if (ours.isNull()) {
      ADD_FAILURE() << "no property " << parameter.property.str();
      continue;
    }
    ours->SetValue(0, valueOf(parameter, state, ours.get()));
    graph.release();
    helper.Commit();
  }
  return open<OdDbBlockReference>(reference)->blockTableRecord();
}
