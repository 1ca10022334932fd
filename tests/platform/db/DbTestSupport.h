// Shared set-up for database tests: a fresh database with its default contents, and shortcuts to
// open objects of a known class.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbXrecord.h"
#include "platform/db/cloning/OdDbIdMapping.h"
#include "platform/db/cloning/OdRxEvent.h"
#include "platform/db/cloning/OdRxEventReactor.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/filers/OdDbResBufDxfFiler.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/resbuf/OdDxfCode.h"

// Runs statement and checks that it fails with code.
#define EXPECT_OD_ERROR(statement, expected)                    \
  do {                                                          \
    try {                                                       \
      statement;                                                \
      ADD_FAILURE() << #statement " did not fail";              \
    } catch (const OdError& error) {                            \
      EXPECT_EQ(error.code(), expected) << error.description(); \
    }                                                           \
  } while (false)

// A result-buffer chain of the given items, in order.
inline OdResBufPtr chainOf(std::initializer_list<OdResBufPtr> items) {
  OdResBufPtr head;
  for (const OdResBufPtr& item : items) {
    if (head.isNull())
      head = item;
    else
      head->last()->setNext(item);
  }
  return head;
}

// Each item as "code value": ids and handles as their handle, points as x,y,z.
inline std::vector<std::string> tagTexts(const OdResBuf* chain) {
  std::vector<std::string> texts;
  for (const OdResBuf* item = chain; item; item = item->next().get()) {
    std::ostringstream out;
    out << item->restype() << ' ';
    switch (OdDxfCode::_getType(item->restype())) {
      case OdDxfCode::String:
        out << item->getString().str();
        break;
      case OdDxfCode::Bool:
        out << item->getBool();
        break;
      case OdDxfCode::Integer16:
      case OdDxfCode::Integer32:
      case OdDxfCode::Integer64:
        out << item->getInt64();
        break;
      case OdDxfCode::Double:
        out << item->getDouble();
        break;
      case OdDxfCode::Point: {
        const OdGePoint3d& p = item->getPoint3d();
        out << p.x << ',' << p.y << ',' << p.z;
        break;
      }
      case OdDxfCode::Handle:
        out << item->getHandle().ascii().str();
        break;
      case OdDxfCode::ObjectId:
      case OdDxfCode::SoftPointerId:
      case OdDxfCode::HardPointerId:
      case OdDxfCode::SoftOwnershipId:
      case OdDxfCode::HardOwnershipId:
        out << item->getObjectId().getHandle().ascii().str();
        break;
      default:
        break;
    }
    texts.push_back(out.str());
  }
  return texts;
}

// The handle of id as the text DXF items carry.
inline std::string hex(const OdDbObjectId& id) {
  return id.getHandle().ascii().str();
}

// The DXF items object files (fields and extended data).
inline OdResBufPtr dxfItemsOf(const OdDbObject* object) {
  OdDbResBufDxfFilerPtr filer = OdDbResBufDxfFiler::createObject(object->database());
  object->dxfOut(filer.get());
  return filer->items();
}

// Logs the clone notices in order; a test may act at the start of translation.
class CloneEventLog : public OdRxEventReactor {
 public:
  void beginDeepClone(OdDbDatabase*, OdDbIdMapping&) override { log.push_back("begin"); }
  void beginDeepCloneXlation(OdDbIdMapping& mapping) override {
    log.push_back("xlation");
    if (onXlation) onXlation(mapping);
  }
  void endDeepClone(OdDbIdMapping&) override { log.push_back("end"); }
  void abortDeepClone(OdDbIdMapping&) override { log.push_back("abort"); }
  void addRef() override {}
  void release() override {}

  std::vector<std::string> log;
  std::function<void(OdDbIdMapping&)> onXlation;
};

// Registers a reactor with the event hub for the life of the scope.
class ScopedEventReactor {
 public:
  explicit ScopedEventReactor(OdRxEventReactor* reactor) : m_reactor(reactor) {
    odrxEvent()->addReactor(reactor);
  }
  ~ScopedEventReactor() { odrxEvent()->removeReactor(m_reactor); }
  ScopedEventReactor(const ScopedEventReactor&) = delete;
  ScopedEventReactor& operator=(const ScopedEventReactor&) = delete;

 private:
  OdRxEventReactor* m_reactor;
};

// Runs statement, checks that it fails with code and that the message names every text given.
#define EXPECT_OD_ERROR_NAMING(statement, expected, ...)                    \
  do {                                                                      \
    try {                                                                   \
      statement;                                                            \
      ADD_FAILURE() << #statement " did not fail";                          \
    } catch (const OdError& error) {                                        \
      EXPECT_EQ(error.code(), expected) << error.description();             \
      for (const std::string& part : std::vector<std::string>{__VA_ARGS__}) \
        EXPECT_NE(error.description().find(part), std::string::npos)        \
            << "\"" << part << "\" missing from: " << error.description();  \
    }                                                                       \
  } while (false)

class DbTest : public ::testing::Test {
 protected:
  void SetUp() override { db = OdDbDatabase::createObject(); }

  template <class T>
  OdSmartPtr<T> open(const OdDbObjectId& id, OdDb::OpenMode mode = OdDb::kForRead,
                     bool openErased = false) {
    return OdSmartPtr<T>(id.safeOpenObject(mode, openErased));
  }

  // A new block named name in db's block table.
  OdDbObjectId addBlock(const OdString& name) {
    OdSmartPtr<OdDbBlockTable> table = open<OdDbBlockTable>(db->getBlockTableId(), OdDb::kForWrite);
    OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
    block->setName(name);
    return table->add(block.get());
  }

  // A reference to block appended to owner.
  OdDbObjectId addReference(const OdDbObjectId& owner, const OdDbObjectId& block,
                            const OdGePoint3d& at = OdGePoint3d::kOrigin) {
    OdDbBlockTableRecordPtr record = open<OdDbBlockTableRecord>(owner, OdDb::kForWrite);
    OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(block);
    reference->setPosition(at);
    return record->appendOdDbEntity(reference.get());
  }

  // The clone of id recorded in mapping, or null.
  static OdDbObjectId cloneOf(const OdDbIdMapping& mapping, const OdDbObjectId& id) {
    OdDbIdPair pair(id);
    return mapping.compute(pair) ? pair.value() : OdDbObjectId::kNull;
  }

  // Ids of a block's entities in iteration order, forwards or backwards.
  OdDbObjectIdArray entitiesOf(const OdDbObjectId& block, bool forwards = true,
                               bool skipErased = true) {
    OdDbObjectIdArray ids;
    OdDbObjectIteratorPtr it = open<OdDbBlockTableRecord>(block)->newIterator(forwards, skipErased);
    for (; !it->done(); it->step(forwards, skipErased))
      ids.append(it->objectId());
    return ids;
  }

  OdDbDatabasePtr db;
};
