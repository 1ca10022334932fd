// Base of every grip: the handle through which a user moves one point of one parameter on a block
// reference. It keeps its own copy of the point through the evaluation cycle (defined, current,
// updated), the offset from the point to where it is drawn, and a direction. Its positions are
// moved by its parameter (on transforms and commits), never by transforming the grip itself; it
// adds nothing to the element's DXF fields.
#pragma once

#include "core/CJbCustBlockElement.h"
#include "core/CJbCustBlockGraphGrip.h"

class CJbCustBlockGripImpl;

class CJbCustBlockGrip : public CJbCustBlockElement, public CJbCustBlockGraphGrip {
  ODRX_DECLARE_MEMBERS(CJbCustBlockGrip);

 public:
  // How the host draws and drags the grip.
  enum GripType {
    kPointGrip = 0,
    kLinearGrip = 1,
    kRotationGrip = 2,
    kAlignmentGrip = 3,
    kFlipGrip = 4,
    kStateGrip = 5
  };

  ~CJbCustBlockGrip() override;

  bool EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool Reset(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool LoadInstance(OdResBufPtr& cursor, CJbDbCustBlockGraphInstanceContext* context) override;
  OdResBufPtr SaveInstance(CJbDbCustBlockGraphInstanceContext* context) override;
  // A drag in progress.
  bool NeedEvaluate() const override;
  // Shown only while bound to a parameter point that shows its grip.
  bool IsVisible() const override;
  OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) override;
  void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const override;

  virtual GripType GetType() const = 0;
  virtual bool IsFixed() const;

  OdGeVector3d GetDefinitionOffset() const;
  void SetDefinitionOffset(const OdGeVector3d& offset);
  OdGeVector3d GetDefinitionDirection() const;
  void SetDefinitionDirection(const OdGeVector3d& direction);
  // The authored point (the name is spelled so throughout the element interfaces).
  OdGePoint3d GetDefindedPosition() const;
  void SetDefindedPosition(const OdGePoint3d& point);
  bool IsInsertionPointCyclingEnabled() const override;
  void SetInsertionPointCyclingEnabled(bool enabled);

  // Instance state: written without opening for write, since evaluation produces it.
  OdGeVector3d GetCurrentOffset() const;
  void SetCurrentOffset(const OdGeVector3d& offset);
  OdGeVector3d GetCurrentDirection() const;
  void SetCurrentDirection(const OdGeVector3d& direction);
  OdGePoint3d GetCurrentPosition() const;
  // Sets the updated position too.
  void SetCurrentPosition(const OdGePoint3d& point);
  OdGePoint3d GetUpdatedPosition() const override;
  // Only the alignment grip gathers the grips standing on it.
  bool GathersCyclingPoints() const override;
  void SetUpdatedPosition(const OdGePoint3d& point);
  // Where the grip is drawn: current position plus current offset.
  OdGePoint3d GetDisplayPosition() const;
  // The user drags the drawn grip; the point follows it.
  void SetDisplayPosition(const OdGePoint3d& point);
  // The drag in progress: updated minus current position.
  OdGeVector3d GetOffset() const;

  // The parameter whose point this grip shows, and that point's index; the null id (index left
  // as it was) when there is none.
  int GetParameter(unsigned* pointIndex) const;

 protected:
  explicit CJbCustBlockGrip(CJbCustBlockGripImpl* impl);
  CJbCustBlockGripImpl* GripImpl() const;
};

using CJbCustBlockGripPtr = OdSmartPtr<CJbCustBlockGrip>;
