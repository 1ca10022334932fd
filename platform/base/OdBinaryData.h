// An uninterpreted run of bytes, as kept in binary chunks of result buffers and filers.
#pragma once

#include "platform/base/OdArray.h"

using OdBinaryData = OdArray<unsigned char>;
