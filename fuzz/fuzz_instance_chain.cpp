// Fuzz target: an instance chain decoded from arbitrary bytes (see InstanceChainCoding), loaded
// into a graph holding one node of every element class, then saved again. A chain that does not
// load is a false result, never a crash.
#include <cstring>
#include <string>

#include "InstanceChainCoding.h"
#include "ModuleFuzzing.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "platform/resbuf/OdResBuf.h"

namespace {
CJbDbCustBlockGraph* theGraph = nullptr;

class ChainDecoder {
 public:
  ChainDecoder(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}

  OdResBufPtr chain() {
    OdResBufPtr head;
    OdResBuf* tail = nullptr;
    std::uint8_t kind = 0;
    while (take(&kind, 1)) {
      OdResBufPtr item = decode(kind);
      if (item.isNull()) break;
      if (tail)
        tail->setNext(item);
      else
        head = item;
      tail = item.get();
    }
    return head;
  }

 private:
  bool take(void* out, std::size_t count) {
    if (m_size - m_next < count) return false;
    std::memcpy(out, m_data + m_next, count);
    m_next += count;
    return true;
  }

  OdResBufPtr decode(std::uint8_t kind) {
    const std::vector<int>& codes =
        InstanceChainCoding::codes()[kind % InstanceChainCoding::kKinds];
    const int code = codes[(kind / InstanceChainCoding::kKinds) % codes.size()];
    std::int32_t integer = 0;
    double real[3] = {0, 0, 0};
    std::uint8_t byte = 0;
    switch (kind % InstanceChainCoding::kKinds) {
      case InstanceChainCoding::kInteger:
        if (!take(&integer, sizeof integer)) return OdResBufPtr();
        return OdResBuf::newRb(code, integer);
      case InstanceChainCoding::kReal:
        if (!take(real, sizeof real[0])) return OdResBufPtr();
        return OdResBuf::newRb(code, real[0]);
      case InstanceChainCoding::kFlag:
        if (!take(&byte, 1)) return OdResBufPtr();
        return OdResBuf::newRb(code, byte % 2 == 1);
      case InstanceChainCoding::kPoint:
        if (!take(real, sizeof real)) return OdResBufPtr();
        return OdResBuf::newRb(code, OdGePoint3d(real[0], real[1], real[2]));
      default: {
        if (!take(&byte, 1)) return OdResBufPtr();
        std::string text(byte, '\0');
        if (!take(text.data(), text.size())) return OdResBufPtr();
        return OdResBuf::newRb(code, OdString(text));
      }
    }
  }

  const std::uint8_t* m_data;
  std::size_t m_size;
  std::size_t m_next = 0;
};
}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  registerModuleClasses();
  theGraph = graphOfEveryElement().detach();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const OdResBufPtr chain = ChainDecoder(data, size).chain();
    CJbDbCustBlockGraphInstanceContext context(data && size > 0 ? data[0] % 8 : 0, nullptr);
    theGraph->LoadInstance(chain, &context);
    CJbDbCustBlockGraphInstanceContext save(0, nullptr);
    (void)theGraph->SaveInstance(&save);
  } catch (const OdError&) {
  }
  return 0;
}
