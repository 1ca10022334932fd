// A record's binary data as fuzz input bytes: per item a kind byte (modulo kKinds) and its value;
// an object id is one byte, an index into the ids of the drawing's objects in handle order (past
// the end: null). Decoding writes the items through a memory filer, so that a read sees every
// sequence of values a damaged file could hold, with ids only of objects that exist.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>

#include "platform/db/OdDbDatabase.h"
#include "platform/db/filers/OdDbMemoryDwgFiler.h"

class StorageRecordCoding {
 public:
  enum Kind {
    kBool,
    kInt16,
    kInt32,
    kDouble,
    kString,
    kSoftPointer,
    kHardPointer,
    kSoftOwner,
    kHardOwner,
    kKinds
  };

  explicit StorageRecordCoding(OdDbDatabase* db) {
    for (std::uint64_t handle = 1; handle < db->handseed().value() && m_ids.length() < 255;
         ++handle) {
      const OdDbObjectId id = db->getOdDbObjectId(OdDbHandle(handle));
      if (!id.isNull()) m_ids.append(id);
    }
  }

  // A filer that records what is written through it as input bytes.
  class Recorder : public OdDbMemoryDwgFiler {
   public:
    Recorder(const StorageRecordCoding& coding, OdDbDatabase* db) : m_coding(coding) {
      setDatabase(db);
      setFilerType(OdDb::kFileFiler);
    }
    const std::string& bytes() const { return m_bytes; }

    void wrBool(bool value) override { item(kBool, &value, 1); }
    void wrInt16(std::int16_t value) override { item(kInt16, &value, sizeof value); }
    void wrInt32(std::int32_t value) override { item(kInt32, &value, sizeof value); }
    void wrDouble(double value) override { item(kDouble, &value, sizeof value); }
    void wrString(const OdString& value) override {
      const std::string text = value.str().substr(0, 255);
      m_bytes += static_cast<char>(kString);
      m_bytes += static_cast<char>(text.size());
      m_bytes += text;
    }
    void wrSoftPointerId(const OdDbObjectId& id) override { idItem(kSoftPointer, id); }
    void wrHardPointerId(const OdDbObjectId& id) override { idItem(kHardPointer, id); }
    void wrSoftOwnershipId(const OdDbObjectId& id) override { idItem(kSoftOwner, id); }
    void wrHardOwnershipId(const OdDbObjectId& id) override { idItem(kHardOwner, id); }

   private:
    void item(Kind kind, const void* value, std::size_t size) {
      m_bytes += static_cast<char>(kind);
      m_bytes.append(static_cast<const char*>(value), size);
    }
    void idItem(Kind kind, const OdDbObjectId& id) {
      OdDbObjectIdArray::size_type found = 0;
      const bool known = !id.isNull() && m_coding.m_ids.find(id, found);
      m_bytes += static_cast<char>(kind);
      m_bytes += static_cast<char>(known ? found : 255);
    }

    const StorageRecordCoding& m_coding;
    std::string m_bytes;
  };

  // Writes the items the bytes hold into the filer, up to the first one cut short.
  void decode(const std::uint8_t* data, std::size_t size, OdDbDwgFiler* filer) const {
    std::size_t next = 0;
    const auto take = [&](void* out, std::size_t count) {
      if (size - next < count) return false;
      std::memcpy(out, data + next, count);
      next += count;
      return true;
    };
    std::uint8_t kind = 0;
    while (take(&kind, 1)) {
      std::uint8_t byte = 0;
      std::int16_t int16 = 0;
      std::int32_t int32 = 0;
      double real = 0;
      switch (kind % kKinds) {
        case kBool:
          if (!take(&byte, 1)) return;
          filer->wrBool(byte % 2 == 1);
          break;
        case kInt16:
          if (!take(&int16, sizeof int16)) return;
          filer->wrInt16(int16);
          break;
        case kInt32:
          if (!take(&int32, sizeof int32)) return;
          filer->wrInt32(int32);
          break;
        case kDouble:
          if (!take(&real, sizeof real)) return;
          filer->wrDouble(real);
          break;
        case kString: {
          if (!take(&byte, 1)) return;
          std::string text(byte, '\0');
          if (!take(text.data(), text.size())) return;
          filer->wrString(OdString(text));
          break;
        }
        default: {
          if (!take(&byte, 1)) return;
          const OdDbObjectId id = byte < m_ids.length() ? m_ids[byte] : OdDbObjectId::kNull;
          switch (kind % kKinds) {
            case kSoftPointer:
              filer->wrSoftPointerId(id);
              break;
            case kHardPointer:
              filer->wrHardPointerId(id);
              break;
            case kSoftOwner:
              filer->wrSoftOwnershipId(id);
              break;
            default:
              filer->wrHardOwnershipId(id);
          }
        }
      }
    }
  }

 private:
  OdDbObjectIdArray m_ids;
};
