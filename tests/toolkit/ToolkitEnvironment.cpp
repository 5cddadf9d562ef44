// No display, even where there is one.
#include "support/ToolkitEnvironment.h"

namespace QVM_NAMESPACE {
namespace {

[[maybe_unused]] testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(new ToolkitEnvironment(TestDisplay::none));

} // namespace
} // namespace QVM_NAMESPACE
