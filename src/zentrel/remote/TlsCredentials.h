#pragma once

#include "base/Result.h"
#include "zentrel/remote/AdminOptions.h"

#include <grpcpp/security/server_credentials.h>

#include <memory>
#include <mutex>

// Not for public headers: includes gRPC.
namespace zentrel {

enum class TlsSide { Server, Client };

// InvalidData: one of the texts is not what it should be, the key is not the certificate's, or the
// certificate was not made for this side.
Done CheckTls(const AdminTls& tls, TlsSide side);

// From now on no TLS connection of this process speaks anything older than TLS 1.3. gRPC has no setting for
// it; this one is the TLS library's.
Done AllowOnlyTls13();

// What a listener shows to its clients and expects of them; may be replaced while it serves.
class TlsMaterial {
public:
    explicit TlsMaterial(AdminTls tls) : m_tls(std::move(tls)) {}

    void Replace(AdminTls tls);
    // What is new since the last call.
    std::optional<AdminTls> TakeNews();

private:
    std::mutex m_mutex;
    AdminTls m_tls;
    bool m_isNew = true;
};

// Clients must show a certificate of the authority.
std::shared_ptr<grpc::ServerCredentials> MakeTlsCredentials(std::shared_ptr<TlsMaterial> material);

}  // namespace zentrel
