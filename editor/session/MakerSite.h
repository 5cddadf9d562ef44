// Who makes the product, and where on the web.
#pragma once

#include "description/QVMMetadata.h"

#include <string>
#include <string_view>

namespace QVM_NAMESPACE {

inline constexpr std::string_view makerName = "Ferrowind";
inline constexpr std::string_view makerSite = "https://ferrowind.example";

// The address of a product's page.
inline std::string productPage(const QVMMetadata& metadata) {
    return std::string(makerSite) + "/" + metadata.pluginURLSlug;
}

} // namespace QVM_NAMESPACE
