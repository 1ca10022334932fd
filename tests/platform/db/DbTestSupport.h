// Shared set-up for database tests: a fresh database with its default contents, and shortcuts to
// open objects of a known class.
#pragma once

#include <gtest/gtest.h>

#include "platform/db/OdDbBlockReference.h"
#include "platform/db/OdDbBlockTable.h"
#include "platform/db/OdDbBlockTableRecord.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbXrecord.h"

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

class DbTest : public ::testing::Test {
 protected:
  void SetUp() override { db = OdDbDatabase::createObject(); }

  template <class T>
  OdSmartPtr<T> open(const OdDbObjectId& id, OdDb::OpenMode mode = OdDb::kForRead) {
    return OdSmartPtr<T>(id.safeOpenObject(mode));
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

  OdDbDatabasePtr db;
};
