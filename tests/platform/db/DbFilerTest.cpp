#include "DbTestSupport.h"
#include "platform/db/filers/OdDbMemoryDwgFiler.h"
#include "platform/db/filers/OdDbResBufDxfFiler.h"
#include "platform/ge/OdGeScale3d.h"
#include "platform/ge/OdGeVector2d.h"

class DbFilers : public DbTest {};

TEST_F(DbFilers, MemoryFilerRoundTripsEveryKindAndCollectsIdsByKind) {
  OdDbMemoryDwgFilerPtr filer = OdDbMemoryDwgFiler::createObject(db.get(), OdDb::kDeepCloneFiler);
  const OdDbObjectId a = db->getBlockTableId();
  const OdDbObjectId b = db->getLayerTableId();
  const std::uint8_t bytes[] = {0, 1, 255};
  filer->wrBool(true);
  filer->wrInt8(-8);
  filer->wrInt16(-16000);
  filer->wrInt32(-2000000000);
  filer->wrInt64(-9000000000000LL);
  filer->wrDouble(0.1);
  filer->wrString("Grüße");
  filer->wrBytes(bytes, 3);
  filer->wrDbHandle(OdDbHandle(0xABCDEF));
  filer->wrPoint2d(OdGePoint2d(1, 2));
  filer->wrPoint3d(OdGePoint3d(1, 2, 3));
  filer->wrVector2d(OdGeVector2d(4, 5));
  filer->wrVector3d(OdGeVector3d(4, 5, 6));
  filer->wrScale3d(OdGeScale3d(7, 8, 9));
  filer->wrSoftPointerId(a);
  filer->wrHardPointerId(b);
  filer->wrSoftOwnershipId(b);
  filer->wrHardOwnershipId(a);
  filer->wrHardOwnershipId(OdDbObjectId::kNull);
  EXPECT_EQ(filer->collectedIds(OdDb::kSoftPointerRef), OdDbObjectIdArray{a});
  EXPECT_EQ(filer->collectedIds(OdDb::kHardPointerRef), OdDbObjectIdArray{b});
  EXPECT_EQ(filer->collectedIds(OdDb::kSoftOwnershipRef), OdDbObjectIdArray{b});
  EXPECT_EQ(filer->collectedIds(OdDb::kHardOwnershipRef), OdDbObjectIdArray{a});

  filer->seek(0, OdDb::kSeekFromStart);
  EXPECT_TRUE(filer->rdBool());
  EXPECT_EQ(filer->rdInt8(), -8);
  EXPECT_EQ(filer->rdInt16(), -16000);
  EXPECT_EQ(filer->rdInt32(), -2000000000);
  EXPECT_EQ(filer->rdInt64(), -9000000000000LL);
  EXPECT_EQ(filer->rdDouble(), 0.1);
  EXPECT_EQ(filer->rdString(), "Grüße");
  std::uint8_t back[3] = {};
  filer->rdBytes(back, 3);
  EXPECT_EQ(back[2], 255);
  EXPECT_EQ(filer->rdDbHandle().value(), 0xABCDEFu);
  EXPECT_EQ(filer->rdPoint2d().y, 2.0);
  EXPECT_TRUE(filer->rdPoint3d().isEqualTo(OdGePoint3d(1, 2, 3)));
  EXPECT_EQ(filer->rdVector2d().x, 4.0);
  EXPECT_TRUE(filer->rdVector3d().isEqualTo(OdGeVector3d(4, 5, 6)));
  EXPECT_EQ(filer->rdScale3d().sz, 9.0);
  EXPECT_EQ(filer->rdSoftPointerId(), a);
  EXPECT_EQ(filer->rdHardPointerId(), b);
  EXPECT_EQ(filer->rdSoftOwnershipId(), b);
  EXPECT_EQ(filer->rdHardOwnershipId(), a);
  EXPECT_TRUE(filer->rdHardOwnershipId().isNull());
  EXPECT_EQ(filer->filerStatus(), eOk);

  // Past the end, and a read of the wrong kind, fail and say where.
  EXPECT_OD_ERROR(filer->rdInt32(), eEndOfFile);
  EXPECT_EQ(filer->filerStatus(), eEndOfFile);
  filer->seek(0, OdDb::kSeekFromStart);
  EXPECT_OD_ERROR(filer->rdInt32(), eDwgObjectImproperlyRead);
  EXPECT_OD_ERROR(filer->rdSoftPointerId(), eDwgObjectImproperlyRead);

  // Collecting ids only keeps no stream, and a reset stream is written afresh.
  filer->reset();
  filer->setCollectIdsOnly(true);
  filer->wrString("dropped");
  filer->wrHardOwnershipId(a);
  EXPECT_EQ(filer->length(), 0u);
  EXPECT_EQ(filer->collectedIds(OdDb::kHardOwnershipRef), OdDbObjectIdArray{a});
  filer->setCollectIdsOnly(false);
  filer->reset();
  filer->wrInt16(7);
  filer->seek(0, OdDb::kSeekFromStart);
  EXPECT_EQ(filer->rdInt16(), 7);
  EXPECT_OD_ERROR(filer->rdInt16(), eEndOfFile);
}

TEST_F(DbFilers, PlainLayoutKeepsBareValuesAndIdsAside) {
  OdDbMemoryDwgFilerPtr out = OdDbMemoryDwgFiler::createObject(db.get(), OdDb::kFileFiler);
  out->setLayout(OdDbMemoryDwgFiler::Layout::kPlain);
  const OdDbObjectId a = db->getBlockTableId();
  const std::uint8_t bytes[] = {9, 8};
  out->wrInt16(0x0102);
  out->wrString("ab");
  out->wrBytes(bytes, 2);
  out->wrHardPointerId(a);
  out->wrHardPointerId(OdDbObjectId::kNull);
  out->wrPoint3d(OdGePoint3d(1, 2, 3));
  // Records keep this form: no kind bytes, a string after its 32-bit length, bare blocks.
  const OdBinaryData data = out->data();
  ASSERT_EQ(data.length(), 2u + 4u + 2u + 2u + 24u);
  EXPECT_EQ(data[0], 0x02);
  EXPECT_EQ(data[2], 2);
  EXPECT_EQ(data[6], 'a');
  EXPECT_EQ(data[8], 9);
  EXPECT_EQ(out->collectedIds(OdDb::kHardPointerRef), (OdDbObjectIdArray{a, OdDbObjectId::kNull}));

  OdDbMemoryDwgFilerPtr in = OdDbMemoryDwgFiler::createObject(db.get(), OdDb::kFileFiler);
  in->setLayout(OdDbMemoryDwgFiler::Layout::kPlain);
  in->setData(data);
  in->setIds(OdDb::kHardPointerRef, out->collectedIds(OdDb::kHardPointerRef));
  EXPECT_EQ(in->rdInt16(), 0x0102);
  EXPECT_EQ(in->rdString(), "ab");
  std::uint8_t back[2] = {};
  in->rdBytes(back, 2);
  EXPECT_EQ(back[1], 8);
  EXPECT_EQ(in->rdHardPointerId(), a);
  EXPECT_TRUE(in->rdHardPointerId().isNull());
  EXPECT_OD_ERROR(in->rdHardPointerId(), eDwgObjectImproperlyRead);
  EXPECT_OD_ERROR(in->rdSoftPointerId(), eDwgObjectImproperlyRead);
  EXPECT_TRUE(in->rdPoint3d().isEqualTo(OdGePoint3d(1, 2, 3)));
  EXPECT_OD_ERROR(in->rdInt8(), eEndOfFile);

  // A length running past the end is caught before anything is read from beyond it.
  in->seek(2, OdDb::kSeekFromStart);
  in->wrInt32(1000);
  in->seek(2, OdDb::kSeekFromStart);
  EXPECT_OD_ERROR(in->rdString(), eEndOfFile);
  EXPECT_EQ(in->length(), data.length()) << "writing in the middle keeps the rest";
}

TEST_F(DbFilers, CopiesCarryDataButNeverOwnership) {
  OdDbDictionaryPtr named =
      open<OdDbDictionary>(db->getNamedObjectsDictionaryId(), OdDb::kForWrite);
  OdDbXrecordPtr record = OdDbXrecord::createObject();
  named->setAt("REC", record.get());
  record->createExtensionDictionary();
  OdResBufPtr items = OdResBuf::newRb(1, "text");
  items->setNext(OdResBuf::newRb(340, db->getLayerZeroId()));
  items->last()->setNext(OdResBuf::newRb(360, named->objectId()));
  items->last()->setNext(OdResBuf::newRb(10, OdGePoint3d(1, 2, 3)));
  ASSERT_EQ(record->setFromRbChain(items.get()), eOk);
  EXPECT_EQ(record->setFromRbChain(OdResBuf::newRb(100, "marker").get()), eInvalidResBuf);

  OdDbXrecordPtr copy = OdDbXrecord::cast(record->clone().get());
  EXPECT_FALSE(copy->isDBRO());
  EXPECT_TRUE(copy->extensionDictionary().isNull());
  OdResBufPtr chain = copy->rbChain();
  EXPECT_EQ(chain->getString(), "text");
  EXPECT_EQ(chain->next()->getObjectId(), db->getLayerZeroId());  // a pointer stays
  EXPECT_TRUE(chain->next()->next()->getObjectId().isNull());     // an ownership does not
  EXPECT_TRUE(chain->last()->getPoint3d().isEqualTo(OdGePoint3d(1, 2, 3)));

  // The record's DXF form reads back into an equal record.
  OdDbResBufDxfFilerPtr out = OdDbResBufDxfFiler::createObject(db.get());
  record->dxfOut(out.get());
  OdResBufPtr tags = out->items();
  EXPECT_EQ(tags->restype(), 5);
  OdDbXrecordPtr reread = OdDbXrecord::createObject();
  OdDbResBufDxfFilerPtr in = OdDbResBufDxfFiler::createObject(nullptr, tags);
  ASSERT_EQ(reread->dxfIn(in.get()), eOk);
  EXPECT_EQ(reread->extensionDictionary(), record->extensionDictionary());
  EXPECT_EQ(reread->ownerId(), named->objectId());
  EXPECT_EQ(reread->rbChain()->next()->getObjectId(), db->getLayerZeroId());
  EXPECT_TRUE(in->atEOF());
}
