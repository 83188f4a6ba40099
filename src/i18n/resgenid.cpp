#include "i18n/resgenid.h"

#include <cstdio>
#include <cstdlib>

namespace wk {

void ResGenAssertFailed(const char* expression, const char* unit, int line) {
    // The one message the core prints itself: the program is about to end and nothing
    // above it can show anything any more.
    std::fprintf(stderr, "Assertion failed: %s, file %s, line %d\n", expression, unit, line);
    std::fflush(stderr);
    std::abort();
}

}  // namespace wk
