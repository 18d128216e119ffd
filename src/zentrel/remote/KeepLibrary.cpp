#include "zentrel/remote/KeepLibrary.h"

#include <grpc/grpc.h>
#include <grpc/support/log.h>

#include <cstdlib>

namespace zentrel {

namespace {

void DropLog(gpr_log_func_args*) {}

}  // namespace

void KeepLibrary()
{
    [[maybe_unused]] static const bool isKept = [] {
        setenv("GRPC_DNS_RESOLVER", "native", 0);
        if (std::getenv("GRPC_VERBOSITY") == nullptr) gpr_set_log_function(DropLog);
        grpc_init();
        return true;
    }();
}

}  // namespace zentrel
