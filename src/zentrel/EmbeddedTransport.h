#pragma once

#include "zentrel/Service.h"
#include "zentrel/Session.h"

#include <filesystem>
#include <memory>
#include <string>

namespace zentrel {

// Sessions with the service whose data folder is opened in this process: the local machine's server. All
// sessions of one transport share one service, since a process must not open a store twice.
class EmbeddedTransport : public Transport {
public:
    // The data folder is opened at the first connection and again after it was replaced by another.
    EmbeddedTransport(std::filesystem::path dataFolder, std::string localName);
    // A service that this process runs already.
    EmbeddedTransport(std::shared_ptr<Service> service, std::string localName);

    std::string LocalName() const override { return m_localName; }

    // Local names: empty, ".", "localhost" and this machine's own, whatever their case. Everything else,
    // and a machine without a data folder, is ServerUnavailable; nothing is ever made by looking.
    Result<std::shared_ptr<Session>> Connect(std::string_view server) override;
    // A folder that this process has opened has no host service around it: always 1722.
    Result<std::unique_ptr<ServiceManager>> OpenServiceManager(std::string_view machine,
                                                               std::uint32_t access) override;

private:
    bool IsLocalName(std::string_view server) const;
    Result<std::shared_ptr<Service>> OpenService();

    std::filesystem::path m_dataFolder;
    std::string m_localName;
    std::shared_ptr<Service> m_given;
    std::weak_ptr<Service> m_opened;
    std::uintmax_t m_openedFile = 0;  // tells the opened store's file from one put in its place
};

}  // namespace zentrel
