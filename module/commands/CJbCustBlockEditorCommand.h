// Base of the block-editor commands: they belong to the module's command group and work on the
// evaluation graph of a block the user names, talking with the user through the host's user IO.
#pragma once

#include "core/CJbDbCustBlockGraph.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "platform/host/CJbCustBlockElementUtilsPE.h"
#include "platform/host/OdEdCommand.h"

class OdEdUserIO;

class CJbCustBlockEditorCommand : public OdEdCommand {
 public:
  // The group every command of the module is registered under.
  static constexpr const char* kGroupName = "JB_CUSTOMIZABLE_BLOCKS";

  OdString groupName() const override { return OdString(kGroupName); }
  OdString globalName() const override { return OdString(m_globalName); }
  // Fails with eNoDatabase without a drawing and eNotApplicable without user IO; what Run
  // raises passes on to the host.
  void execute(OdEdCommandContext* context) override;

 protected:
  explicit CJbCustBlockEditorCommand(const char* globalName) : m_globalName(globalName) {}
  virtual void Run() = 0;

  OdDbDatabase* Database() const { return m_database; }
  OdString Ask(const char* prompt) const;
  // An answer that must not be empty; eInvalidInput otherwise.
  OdString AskRequired(const char* prompt) const;
  void Tell(const OdString& text) const;

  // The graph of the block the user names, open in `mode`; eKeyNotFound for a block that is
  // missing or not customizable.
  CJbDbCustBlockGraphPtr AskGraph(OdDb::OpenMode mode) const;
  // The element of `graph` the user names, of class `kind` (any element for null);
  // eKeyNotFound otherwise.
  CJbCustBlockElementPtr AskElement(const CJbDbCustBlockGraph* graph, const char* prompt,
                                    const OdRxClass* kind) const;
  // The registered class whose utilities have the keyword the user types, of `family`;
  // eKeyNotFound otherwise, naming the keywords there are.
  OdRxClass* AskKind(const char* prompt, CJbCustBlockElementUtilsPE::Family family) const;
  // Entities given by their handles; eKeyNotFound for a handle the drawing does not have.
  OdDbObjectIdArray AskEntities(const char* prompt) const;
  // A move "from,to" of positions 1 to count, given back from 0; false for an empty answer,
  // eInvalidInput for anything else that is no such move.
  bool AskMove(const char* prompt, unsigned count, unsigned& from, unsigned& to) const;
  // The block's one visibility parameter; eKeyNotFound when it has none.
  static CJbCustBlockVisibilityParameterPtr VisibilityParameterOf(const CJbDbCustBlockGraph* graph);
  // Hides (or shows) the entities the user names in the visibility state being edited.
  void ChangeHiddenEntities(bool hide) const;
  // The element's label from its utilities, or its name.
  static OdString LabelOf(const CJbCustBlockElement* element);

 private:
  const char* m_globalName;
  OdDbDatabase* m_database = nullptr;
  OdEdUserIO* m_io = nullptr;
};
