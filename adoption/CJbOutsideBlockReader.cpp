#include "adoption/CJbOutsideBlockReader.h"

#include <set>

#include "platform/base/OdError.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbEntity.h"
#include "platform/db/OdDbUnknownObject.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"

namespace {
using Parameter = CJbOutsideBlock::Parameter;
using ParameterKind = CJbOutsideBlock::ParameterKind;

const char kDefinitionKey[] = "ACAD_ENHANCEDBLOCK";
const char kGraphKind[] = "ACAD_EVALUATION_GRAPH";
const char kTrueNameApplication[] = "AcDbDynamicBlockTrueName";
const char kLinearParameter[] = "BLOCKLINEARPARAMETER";
const char kFlipParameter[] = "BLOCKFLIPPARAMETER";
const char kVisibilityParameter[] = "BLOCKVISIBILITYPARAMETER";
const char kLinearGrip[] = "BLOCKLINEARGRIP";
const char kFlipGrip[] = "BLOCKFLIPGRIP";
const char kVisibilityGrip[] = "BLOCKVISIBILITYGRIP";
const char kScaleAction[] = "BLOCKSCALEACTION";
const char kFlipAction[] = "BLOCKFLIPACTION";
const char kGripLocation[] = "BLOCKGRIPLOCATIONCOMPONENT";
// More items than any real block holds: a damaged count stops here instead of running on.
constexpr int kMaxItems = 1 << 20;

// The grip kind that drags each parameter kind, and the action kinds each kind drives.
const char* gripKindOf(ParameterKind kind) {
  switch (kind) {
    case ParameterKind::kLinear:
      return kLinearGrip;
    case ParameterKind::kFlip:
      return kFlipGrip;
    case ParameterKind::kVisibility:
      return kVisibilityGrip;
  }
  return "";
}

bool drives(ParameterKind parameter, CJbOutsideBlock::ActionKind action) {
  return action == CJbOutsideBlock::ActionKind::kScale ? parameter == ParameterKind::kLinear
                                                       : parameter == ParameterKind::kFlip;
}

void expectEnd(const CJbOutsideRecord& record) {
  if (!record.AtEnd()) record.Fail("it holds more data than is understood");
}

// The element name a node of an unknown kind records, when it records one the usual way.
OdString elementName(CJbOutsideRecord record) {
  try {
    record.SkipTo("AcDbBlockElement");
    return record.Text(300);
  } catch (const OdError&) {
    return OdString();
  }
}
}  // namespace

OdDbObjectId CJbOutsideBlockReader::GraphOf(const OdDbObjectId& blockId) {
  const OdDbObjectPtr block = blockId.openObjectShared(OdDb::kForRead);
  if (block.isNull() || block->extensionDictionary().isNull()) return OdDbObjectId();
  const OdDbDictionaryPtr dictionary =
      OdDbDictionary::cast(block->extensionDictionary().openObjectShared(OdDb::kForRead).get());
  if (dictionary.isNull()) return OdDbObjectId();
  const OdDbObjectId graphId = dictionary->getAt(kDefinitionKey);
  const OdDbUnknownObjectPtr graph =
      OdDbUnknownObject::cast(graphId.openObjectShared(OdDb::kForRead).get());
  return graph.isNull() || graph->dxfRecordName() != kGraphKind ? OdDbObjectId() : graphId;
}

OdString CJbOutsideBlockReader::NameOf(const OdDbObjectId& blockId) {
  const OdDbBlockTableRecordPtr block(blockId.safeOpenObject());
  if (block->isAnonymous()) {
    const OdResBufPtr trueName = block->xData(kTrueNameApplication);
    if (!trueName.isNull() && !trueName->next().isNull() && trueName->next()->restype() == 1000)
      return trueName->next()->getString();
  }
  return block->getName();
}

CJbOutsideBlock CJbOutsideBlockReader::Read(const OdDbObjectId& blockId) {
  const OdDbObjectId graphId = GraphOf(blockId);
  if (graphId.isNull())
    throw OdError(eNotApplicable, "block \"" + NameOf(blockId).str() +
                                      "\" carries no parametric definition of another program");
  CJbOutsideBlockReader reader(blockId);
  reader.ReadNodes(graphId);
  reader.Resolve();
  return reader.m_block;
}

CJbOutsideBlockReader::CJbOutsideBlockReader(const OdDbObjectId& blockId) {
  m_block.blockId = blockId;
  m_block.name = NameOf(blockId);
}

void CJbOutsideBlockReader::ReadNodes(const OdDbObjectId& graphId) {
  CJbOutsideRecord record = CJbOutsideRecord::Of(graphId);
  record.Subclass("AcDbEvalGraph");
  record.Int(96);
  record.Int(97);
  std::vector<Node> nodes;
  while (record.At(91)) {
    record.Int(91);
    record.Int(93);
    Node node;
    node.id = record.Int(95);
    node.object = record.Id(360);
    for (int link = 0; link < 4; ++link)
      record.Int(92);
    const OdDbUnknownObjectPtr object =
        OdDbUnknownObject::cast(node.object.openObjectShared(OdDb::kForRead).get());
    if (object.isNull()) record.Fail("node " + std::to_string(node.id) + " names no node object");
    node.kind = object->dxfRecordName();
    if (!m_nodeOfObject.emplace(node.object, node.id).second)
      record.Fail("two nodes name one object");
    nodes.push_back(node);
  }
  // The edges that follow repeat what the nodes' own records say about their inputs.
  for (const Node& node : nodes)
    ReadNode(node);
}

void CJbOutsideBlockReader::ReadNode(const Node& node) {
  OdString name;
  try {
    CJbOutsideRecord record = CJbOutsideRecord::Of(node.object);
    record.Subclass("AcDbEvalExpr");
    if (record.Int(90) != node.id) record.Fail("its node id is not the one the graph gives it");
    if (node.kind == kGripLocation) {
      ReadExpression(record, node);
      return;
    }
    const std::set<OdString> known{kLinearParameter, kFlipParameter, kVisibilityParameter,
                                   kLinearGrip,      kFlipGrip,      kVisibilityGrip,
                                   kScaleAction,     kFlipAction};
    if (!known.count(node.kind)) {
      Unconverted(node.kind, elementName(record), "elements of this kind are not understood");
      return;
    }
    record.SkipTo("AcDbBlockElement");
    name = record.Text(300);
    if (node.kind == kScaleAction || node.kind == kFlipAction) {
      CJbOutsideBlock::Action action;
      action.node = node.id;
      action.name = name;
      action.kind = node.kind == kScaleAction ? CJbOutsideBlock::ActionKind::kScale
                                              : CJbOutsideBlock::ActionKind::kFlip;
      ReadAction(record, action);
      m_block.actions.push_back(action);
      return;
    }
    if (node.kind == kLinearGrip || node.kind == kFlipGrip || node.kind == kVisibilityGrip) {
      ReadGrip(record, node, name);
      return;
    }
    Parameter parameter;
    parameter.node = node.id;
    parameter.name = name;
    record.SkipTo("AcDbBlockParameter");
    record.Int(280);
    record.Int(281);
    if (node.kind == kVisibilityParameter) {
      ReadVisibility(record, parameter);
    } else {
      ReadTwoPointParameter(record, parameter);
      if (node.kind == kLinearParameter)
        ReadLinear(record, parameter);
      else
        ReadFlip(record, parameter);
    }
    expectEnd(record);
    m_block.parameters.push_back(parameter);
  } catch (const OdError& error) {
    Unconverted(node.kind, name, CJbOutsideRecord::Reason(error));
  }
}

void CJbOutsideBlockReader::ReadTwoPointParameter(CJbOutsideRecord& record, Parameter& parameter) {
  record.Subclass("AcDbBlock2PtParameter");
  parameter.points = {record.Point(1010), record.Point(1011)};
  record.Expect(170, 4, "grip slot count");
  std::vector<int> slots;
  for (int slot = 0; slot < 4; ++slot)
    slots.push_back(record.Int(91));
  // Per coordinate of the two points, the grip outputs that move it.
  for (int coordinate = 0; coordinate < 4; ++coordinate) {
    const int count = record.Count(171 + coordinate, kMaxItems);
    for (int i = 0; i < count; ++i) {
      record.Int(92 + coordinate);
      record.Text(301 + coordinate);
    }
  }
  record.Expect(177, 0, "count of further inputs");
  if (slots[2] != 0 || slots[3] != 0) record.Fail("grips beyond its two points are not understood");
  m_gripSlots[parameter.node] = {slots[0], slots[1]};
}

void CJbOutsideBlockReader::ReadLinear(CJbOutsideRecord& record, Parameter& parameter) {
  parameter.kind = ParameterKind::kLinear;
  record.Subclass("AcDbBlockLinearParameter");
  parameter.property = record.Text(305);
  parameter.description = record.Text(306);
  record.Real(140);  // how far from the points its dimension line is drawn
  if (!record.Text(307).isEmpty()) record.Fail("the text under group code 307 is not understood");
  record.Expect(96, 1, "value set kind");
  const double minimum = record.Real(141);
  const double maximum = record.Real(142);
  const double increment = record.Real(143);
  record.Expect(175, 0, "count of listed values");
  if (minimum != 0 || maximum != 0 || increment != 0)
    Unconverted(kLinearParameter, parameter.name,
                OdString::format("its value set (limits %g and %g, increment %g) is not "
                                 "understood: the parameter takes any length",
                                 minimum, maximum, increment));
}

void CJbOutsideBlockReader::ReadFlip(CJbOutsideRecord& record, Parameter& parameter) {
  parameter.kind = ParameterKind::kFlip;
  record.Subclass("AcDbBlockFlipParameter");
  parameter.property = record.Text(305);
  parameter.description = record.Text(306);
  parameter.notFlippedName = record.Text(307);
  parameter.flippedName = record.Text(308);
  record.Point(1012);  // where its label is drawn
  record.Text(309);    // the name of the output that carries its state
  record.Expect(96, 2, "state kind");
}

void CJbOutsideBlockReader::ReadVisibility(CJbOutsideRecord& record, Parameter& parameter) {
  parameter.kind = ParameterKind::kVisibility;
  record.Subclass("AcDbBlock1PtParameter");
  parameter.points = {record.Point(1010)};
  m_gripSlots[parameter.node] = {record.Int(93)};
  record.Expect(170, 0, "count of inputs");
  record.Expect(171, 0, "count of outputs");
  record.Subclass("AcDbBlockVisibilityParameter");
  record.Int(281);
  parameter.property = record.Text(301);
  parameter.description = record.Text(302);
  record.Int(91);  // the state the other program's block editor shows
  const int controlled = record.Count(93, kMaxItems);
  for (int i = 0; i < controlled; ++i)
    parameter.controlledEntities.push_back(Entity(record, 331));
  const int states = record.Count(92, kMaxItems);
  for (int i = 0; i < states; ++i) {
    CJbOutsideBlock::State state;
    state.name = record.Text(303);
    const int entities = record.Count(94, kMaxItems);
    for (int e = 0; e < entities; ++e)
      state.visibleEntities.push_back(Entity(record, 332));
    const int nodes = record.Count(95, kMaxItems);
    for (int n = 0; n < nodes; ++n) {
      const auto node = m_nodeOfObject.find(record.Id(333));
      if (node == m_nodeOfObject.end()) record.Fail("a state shows an object that is no node");
      state.visibleNodes.push_back(node->second);
    }
    parameter.states.push_back(state);
  }
}

void CJbOutsideBlockReader::ReadGrip(CJbOutsideRecord& record, const Node& node,
                                     const OdString& name) {
  GripRecord grip;
  grip.kind = node.kind;
  grip.grip.node = node.id;
  grip.grip.name = name;
  record.SkipTo("AcDbBlockGrip");
  grip.expressions = {record.Int(91), record.Int(92)};
  grip.grip.position = record.Point(1010);
  record.Int(280);  // whether the grip takes part in cycling
  record.Int(93);
  if (node.kind == kLinearGrip) {
    record.Subclass("AcDbBlockLinearGrip");
    record.Vector(140);  // the way its arrow points
  } else if (node.kind == kFlipGrip) {
    record.Subclass("AcDbBlockFlipGrip");
    record.Vector(140);
    grip.expressions.push_back(record.Int(93));
  } else {
    record.Subclass("AcDbBlockVisibilityGrip");
  }
  expectEnd(record);
  m_grips[node.id] = grip;
}

void CJbOutsideBlockReader::ReadAction(CJbOutsideRecord& record, CJbOutsideBlock::Action& action) {
  record.SkipTo("AcDbBlockAction");
  record.Expect(70, 0, "count of selected elements");
  const int entities = record.Count(71, kMaxItems);
  for (int i = 0; i < entities; ++i)
    action.entities.push_back(Entity(record, 330));
  record.Point(1010);  // where its icon is drawn
  std::vector<int> inputs;
  if (action.kind == CJbOutsideBlock::ActionKind::kScale) {
    record.Subclass("AcDbBlockActionWithBasePt");
    inputs = {record.Int(92), record.Int(93)};
    record.Text(301);
    record.Text(302);
    const OdGePoint3d offset = record.Point(1011);
    record.Expect(280, 1, "base type");
    const OdGePoint3d base = record.Point(1012);
    if (!offset.isEqualTo(OdGePoint3d::kOrigin) || !base.isEqualTo(OdGePoint3d::kOrigin))
      record.Fail("a base point away from its parameter's start point is not understood");
    record.Subclass("AcDbBlockScaleAction");
    for (int i = 0; i < 3; ++i)
      inputs.push_back(record.Int(94 + i));
    for (int i = 0; i < 3; ++i)
      record.Text(303 + i);
  } else {
    record.Subclass("AcDbBlockFlipAction");
    for (int i = 0; i < 4; ++i)
      inputs.push_back(record.Int(92 + i));
    for (int i = 0; i < 4; ++i)
      record.Text(301 + i);
  }
  expectEnd(record);
  for (int input : inputs)
    if (input != inputs.front()) record.Fail("its inputs come from more than one node");
  action.parameter = inputs.front();
}

void CJbOutsideBlockReader::ReadExpression(CJbOutsideRecord& record, const Node& node) {
  record.SkipTo("AcDbBlockGripExpr");
  Expression expression;
  expression.parameter = record.Int(91);
  record.Text(300);  // the output it reads, a coordinate of the point the grip sits on
  expectEnd(record);
  m_expressions[node.id] = expression;
}

OdDbObjectId CJbOutsideBlockReader::Entity(CJbOutsideRecord& record, int code) const {
  const OdDbObjectId id = record.Id(code);
  const OdDbEntityPtr entity = OdDbEntity::cast(id.openObjectShared(OdDb::kForRead).get());
  if (entity.isNull() || entity->ownerId() != m_block.blockId)
    record.Fail("it names object " + id.getHandle().ascii().str() +
                ", which is no entity of the block");
  return id;
}

void CJbOutsideBlockReader::Resolve() {
  for (Parameter& parameter : m_block.parameters)
    BindGrips(parameter);
  for (const auto& [id, grip] : m_grips)
    Unconverted(grip.kind, grip.grip.name, "it drags no parameter that is converted");
  for (std::size_t i = 0; i < m_expressions.size(); ++i)
    Unconverted(kGripLocation, OdString(), "it places no grip that is converted");
  std::vector<CJbOutsideBlock::Action> actions;
  for (const CJbOutsideBlock::Action& action : m_block.actions) {
    const OdString kind =
        action.kind == CJbOutsideBlock::ActionKind::kScale ? kScaleAction : kFlipAction;
    const Parameter* parameter = m_block.FindParameter(action.parameter);
    if (!parameter)
      Unconverted(kind, action.name, "the parameter that drives it is not converted");
    else if (!drives(parameter->kind, action.kind))
      Unconverted(
          kind, action.name,
          "it is driven by parameter \"" + parameter->name + "\", of a kind it cannot follow");
    else
      actions.push_back(action);
  }
  m_block.actions = actions;
}

void CJbOutsideBlockReader::BindGrips(Parameter& parameter) {
  const std::vector<int>& slots = m_gripSlots[parameter.node];
  for (unsigned point = 0; point < slots.size(); ++point) {
    const auto grip = m_grips.find(slots[point]);
    if (grip == m_grips.end() || grip->second.kind != gripKindOf(parameter.kind)) continue;
    bool placed = true;
    for (int expression : grip->second.expressions) {
      const auto found = m_expressions.find(expression);
      placed = placed && found != m_expressions.end() && found->second.parameter == parameter.node;
    }
    if (!placed) continue;
    for (int expression : grip->second.expressions)
      m_expressions.erase(expression);
    CJbOutsideBlock::Grip bound = grip->second.grip;
    bound.point = point;
    parameter.grips.push_back(bound);
    m_grips.erase(grip);
  }
}

void CJbOutsideBlockReader::Unconverted(const OdString& kind, const OdString& name,
                                        const OdString& reason) {
  m_block.unconverted.push_back({kind, name, reason});
}
