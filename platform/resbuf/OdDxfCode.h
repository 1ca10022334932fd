// The kind of value a group code (or result type) carries. One table serves result buffers and the
// DXF tag layer, so a code can never mean one thing in memory and another in a file.
#pragma once

class OdDxfCode {
 public:
  enum Type {
    Unknown,  // no value (markers such as -3, 5000) or a code nothing defines
    String,
    Bool,
    Integer16,
    Integer32,
    Integer64,
    Double,
    Point,  // a 3-D point or vector; in DXF files the code of its X, followed by Y (+10) and Z
            // (+20)
    BinaryChunk,
    Handle,
    ObjectId,  // an id without reference kind (entity names)
    SoftPointerId,
    HardPointerId,
    SoftOwnershipId,
    HardOwnershipId,
  };

  // The kind of value of a code. Point codes are those of the X coordinate (10-18, 110-112, 210,
  // 1010-1013); the Y and Z codes that follow them are reals in their own right. Codes 5000-5010
  // are the result types used for values exchanged in memory: 5001 real, 5002 2-D point, 5003
  // 16-bit integer, 5004 angle (real, radians), 5005 string, 5006 entity name (id), 5008
  // orientation (real), 5009 3-D point or vector, 5010 32-bit integer. Never allocates.
  static Type _getType(int code) noexcept;

  // True for every id kind, with or without reference kind.
  static bool isObjectId(Type type) noexcept { return type >= ObjectId; }
  // A short lower-case name of the kind for messages ("double", "16-bit integer").
  static const char* typeName(Type type) noexcept;
};
