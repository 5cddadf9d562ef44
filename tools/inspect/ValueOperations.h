// The value arithmetic as one-line operations: "normalize 2 12345 1" is answered by "12300".
#pragma once

#include "BuildNamespace.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace QVM_NAMESPACE {
namespace inspect {

// What an operation takes, in order.
enum class OperationArgument { pid, value, position, type, direction };

// The arguments of one line; those that the operation does not take keep their defaults.
struct OperationInput {
    std::uint32_t pid = 0;
    float value = 0; // or position
    std::uint32_t type = 0;
    bool forward = false;
};

struct ValueOperation {
    std::string_view name;
    std::span<const OperationArgument> arguments;
    bool needsParameter; // the pid must be one of the product's; otherwise any will do
    std::string (*answer)(const OperationInput& input);
};

struct OperationAnswer {
    bool succeeded = false;
    std::string text; // one line, without its end; on failure what was wrong
};

// All operations, in the order of the help text.
std::span<const ValueOperation> ValueOperations();

// How an operation is written, for example "normalize PID V TYPE".
std::string OperationUsage(const ValueOperation& operation);

// Carries out one line. Words are separated by blanks and tabs.
OperationAnswer AnswerOperation(std::string_view line);

} // namespace inspect
} // namespace QVM_NAMESPACE
