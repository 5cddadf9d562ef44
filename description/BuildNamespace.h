// The one place that names the build.
//
// Two builds or products may be loaded into one host process. Every class therefore lives in an inline namespace made
// of the product code, the version integer and the commit of the build, so that their symbols never meet. Code is
// written as `namespace QVM_NAMESPACE { ... }` and used as `slantwise::QVMParameter`.
#pragma once

#define QVM_PRODUCT_CODE "0015"
#define QVM_VERSION_INTEGER 131073
#define QVM_COMMIT "a6a669f"
#define QVM_NAMESPACE slantwise::inline QVM0015_131073_a6a669f
