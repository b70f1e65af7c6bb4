#include "core/Types.h"

#include <cstdio>
#include <cstdlib>

namespace zorva {

void Fatal(const char* message) {
    std::fprintf(stderr, "zorva: %s\n", message);
    std::abort();
}

}  // namespace zorva
