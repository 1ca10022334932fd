// One open drawing: its database, the file it came from and the form it goes back in (the version
// and the text or binary form it was read in; the code page travels with the header), the space
// shown (model space or a layout), the selection, and whether it changed since it was read or
// saved. Views, panels and the command line of the drawing follow its signals.
#pragma once

#include <QObject>
#include <QString>
#include <memory>
#include <vector>

#include "platform/db/OdDbDatabase.h"
#include "platform/dxf/DxfFile.h"

class DrawingDocument : public QObject {
  Q_OBJECT

 public:
  // The drawing of a DXF file. OdError says where and what when it cannot be read.
  static std::unique_ptr<DrawingDocument> open(const QString& path);
  // A drawing that has no file yet; it is saved as 2018 text.
  explicit DrawingDocument(OdDbDatabasePtr database, const QString& path = QString(),
                           const DxfWriteOptions& form = DxfWriteOptions());
  ~DrawingDocument() override;

  OdDbDatabase* database() const { return m_database.get(); }
  const QString& path() const { return m_path; }
  // The file name, or a placeholder for a drawing without a file.
  QString title() const;
  const DxfWriteOptions& form() const { return m_form; }
  // "AC1032 text": the form a save writes.
  QString formName() const;
  // Whether the form is the one the file was read in: versions before 2000 cannot be written
  // and are saved as 2018.
  bool keepsForm() const { return m_keepsForm; }

  // Writes the drawing to its file, or to `path` which then becomes its file; OdError when the
  // file cannot be written, which is then left as it was.
  void save();
  void saveAs(const QString& path);
  bool isModified() const { return m_modified; }

  // Model space, then each layout's block, in block-table order.
  std::vector<OdDbObjectId> spaces() const;
  // The name a person knows a space by: "Model", "Layout1", ...
  QString spaceName(const OdDbObjectId& space) const;
  const OdDbObjectId& space() const { return m_space; }
  void setSpace(const OdDbObjectId& space);

  // The entity of a hexadecimal handle ("1F"); OdError saying what is wrong when the text is no
  // handle, names nothing or names no entity of a space.
  OdDbObjectId entityOf(const QString& handle) const;

  const std::vector<OdDbObjectId>& selection() const { return m_selection; }
  void select(std::vector<OdDbObjectId> entities);
  void clearSelection() { select({}); }

  // Entities changed on the way to a finished edit (each step of a grip drag): views redraw.
  void notifyChanged(const std::vector<OdDbObjectId>& entities);
  // A finished edit of a person (a grip drag, a palette value, a layer switch, a command): the
  // drawing is modified and everything that shows it is brought up to date. No entities means
  // that anything may have changed.
  void notifyEdited(const std::vector<OdDbObjectId>& entities = {});

 signals:
  void changed(const std::vector<OdDbObjectId>& entities);
  void edited(const std::vector<OdDbObjectId>& entities);
  void selectionChanged();
  void spaceChanged();
  void modifiedChanged(bool modified);

 private:
  void setModified(bool modified);

  OdDbDatabasePtr m_database;
  QString m_path;
  DxfWriteOptions m_form;
  bool m_keepsForm = true;
  bool m_modified = false;
  OdDbObjectId m_space;
  std::vector<OdDbObjectId> m_selection;
};
