#include "module/commands/CJbCustBlockEditorCommand.h"

#include <cstdio>
#include <sstream>

#include "module/CJbCustBlockGraphLookup.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbEntity.h"
#include "platform/host/CJbTranslator.h"
#include "platform/host/OdEdUserIO.h"
#include "platform/rx/OdRxClassDictionary.h"

void CJbCustBlockEditorCommand::execute(OdEdCommandContext* context) {
  OdDbDatabase* database = context ? context->database() : nullptr;
  if (!database) throw OdError(eNoDatabase, globalName().str() + " needs an open drawing");
  OdEdUserIO* io = context->userIO();
  if (!io) throw OdError(eNotApplicable, globalName().str() + " needs a user to answer it");
  m_database = database;
  m_io = io;
  struct Forget {
    CJbCustBlockEditorCommand* command;
    ~Forget() {
      command->m_database = nullptr;
      command->m_io = nullptr;
    }
  } forget{this};
  Run();
}

OdString CJbCustBlockEditorCommand::Ask(const char* prompt) const {
  return m_io->getString(odTranslate("customizable_blocks", prompt));
}

OdString CJbCustBlockEditorCommand::AskRequired(const char* prompt) const {
  const OdString answer = Ask(prompt);
  if (answer.isEmpty())
    throw OdError(eInvalidInput,
                  globalName().str() + ": an answer to \"" + prompt + "\" is needed");
  return answer;
}

void CJbCustBlockEditorCommand::Tell(const OdString& text) const {
  m_io->putString(text);
}

CJbDbCustBlockGraphPtr CJbCustBlockEditorCommand::AskGraph(OdDb::OpenMode mode) const {
  const OdString name = AskRequired("Block name:");
  const OdDbObjectId block = CJbCustBlockGraphLookup::FindBlock(m_database, name);
  if (block.isNull())
    throw OdError(eKeyNotFound, "the drawing has no block \"" + name.str() + "\"");
  const OdDbObjectId graph = CJbCustBlockGraphLookup::FindGraph(block);
  if (graph.isNull())
    throw OdError(eKeyNotFound, "block \"" + name.str() + "\" is not customizable");
  return CJbDbCustBlockGraph::cast(graph.safeOpenObject(mode).get());
}

CJbCustBlockElementPtr CJbCustBlockEditorCommand::AskElement(const CJbDbCustBlockGraph* graph,
                                                             const char* prompt,
                                                             const OdRxClass* kind) const {
  const OdString name = AskRequired(prompt);
  for (int id : graph->GetAllNodeIds()) {
    CJbCustBlockElementPtr element = graph->GetNode(id);
    if (element->GetName().iEquals(name) && (!kind || element->isKindOf(kind))) return element;
  }
  throw OdError(eKeyNotFound, "the block has no " + (kind ? kind->name().str() + " " : "") +
                                  "element \"" + name.str() + "\"");
}

OdRxClass* CJbCustBlockEditorCommand::AskKind(const char* prompt,
                                              CJbCustBlockElementUtilsPE::Family family) const {
  const OdString keyword = AskRequired(prompt);
  std::ostringstream known;
  for (OdRxClass* cls : OdRxClassDictionary::instance().classes()) {
    const CJbCustBlockElementUtilsPEPtr utilities =
        CJbCustBlockElementUtilsPE::cast(cls->getX(CJbCustBlockElementUtilsPE::desc()).get());
    // Only a class's own extension names it; inherited ones speak for the parent.
    if (utilities.isNull() || utilities->GetFamily() != family ||
        (cls->myParent() &&
         cls->myParent()->getX(CJbCustBlockElementUtilsPE::desc()).get() == utilities.get()))
      continue;
    if (utilities->GetKeyword().iEquals(keyword)) return cls;
    known << ' ' << utilities->GetKeyword().str();
  }
  throw OdError(eKeyNotFound, "\"" + keyword.str() + "\" names no kind here; known:" + known.str());
}

OdDbObjectIdArray CJbCustBlockEditorCommand::AskEntities(const char* prompt) const {
  std::istringstream handles(Ask(prompt).str());
  OdDbObjectIdArray ids;
  for (std::string text; handles >> text;) {
    OdDbHandle handle;
    const OdDbObjectId id =
        OdDbHandle::fromAscii(text, handle) ? m_database->getOdDbObjectId(handle) : OdDbObjectId();
    if (id.isNull() || id.isErased())
      throw OdError(eKeyNotFound, "the drawing has no entity with handle " + text);
    ids.append(id);
  }
  return ids;
}

OdString CJbCustBlockEditorCommand::LabelOf(const CJbCustBlockElement* element) {
  const CJbCustBlockElementUtilsPEPtr utilities = CJbCustBlockElementUtilsPE::cast(
      element->isA()->getX(CJbCustBlockElementUtilsPE::desc()).get());
  return utilities.isNull() ? element->GetName() : utilities->GetLabel(element);
}

bool CJbCustBlockEditorCommand::AskMove(const char* prompt, unsigned count, unsigned& from,
                                        unsigned& to) const {
  const OdString answer = Ask(prompt);
  if (answer.isEmpty()) return false;
  if (std::sscanf(answer.c_str(), "%u,%u", &from, &to) != 2 || from < 1 || to < 1 || from > count ||
      to > count) {
    throw OdError(eInvalidInput,
                  OdString::format("\"%s\" is no move; type two positions from 1 to %u as from,to",
                                   answer.c_str(), count)
                      .str());
  }
  --from;
  --to;
  return true;
}

CJbCustBlockVisibilityParameterPtr CJbCustBlockEditorCommand::VisibilityParameterOf(
    const CJbDbCustBlockGraph* graph) {
  for (int id : graph->GetAllNodeIds()) {
    const CJbCustBlockVisibilityParameterPtr parameter =
        CJbCustBlockVisibilityParameter::cast(graph->GetNode(id).get());
    if (!parameter.isNull()) return parameter;
  }
  throw OdError(eKeyNotFound, "the block has no visibility states");
}

void CJbCustBlockEditorCommand::ChangeHiddenEntities(bool hide) const {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  const CJbCustBlockVisibilityParameterPtr parameter = VisibilityParameterOf(graph.get());
  const unsigned state = parameter->GetBlockEditorState();
  OdArray<OdDbObjectId> hidden = parameter->GetDefinedHiddenEntities(state);
  const OdDbObjectIdArray named = AskEntities("Entity handles:");
  for (const OdDbObjectId& id : named) {
    if (hide && !hidden.contains(id)) hidden.append(id);
    if (!hide) hidden.remove(id);
  }
  parameter->SetDefinedHiddenEntities(state, hidden);
  parameter->ForceHideEntitiesForBlockEditorState();
  // Entities no state hides any more are not among those the states show again.
  for (const OdDbObjectId& id : hide ? OdDbObjectIdArray() : named) {
    const OdDbEntityPtr entity = OdDbEntity::cast(id.openObject(OdDb::kForWrite).get());
    if (!entity.isNull()) entity->setVisibility(OdDb::kVisible);
  }
  Tell(OdString::format("%s hides %u entities.", parameter->GetStateName(state).c_str(),
                        static_cast<unsigned>(hidden.length())));
}
