// Needs no display, and takes none but the one that it is given.
#include "support/ToolkitEnvironment.h"

namespace QVM_NAMESPACE {
namespace {

[[maybe_unused]] testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(new ToolkitEnvironment(TestDisplay::given));

} // namespace
} // namespace QVM_NAMESPACE
