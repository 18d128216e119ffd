#include "zentrel/ctl/Context.h"
#include "zentrel/ctl/Table.h"

#include "zentrel/TextFile.h"
#include "zentrel/remote/Certificates.h"

namespace zentrel {

namespace {

constexpr std::size_t kMostBytes = 1U << 16U;

std::string KindText(CertificateInfo::Kind kind)
{
    switch (kind) {
    case CertificateInfo::Kind::Authority: return "authority";
    case CertificateInfo::Kind::Server: return "server";
    case CertificateInfo::Kind::Client: return "client";
    case CertificateInfo::Kind::Other: break;
    }
    return "unknown";
}

Done RunShow(const Context& context, const std::string& file)
{
    const auto pem = ReadTextFile(file, kMostBytes);
    if (!pem) return Fail(pem.error());
    const auto info = ReadCertificate(*pem);
    if (!info) return Fail(info.error().code, "zentrelctl", file + ": " + info.error().description);
    std::vector<std::vector<std::string>> rows{{"Kind", KindText(info->kind)}, {"Name", info->subject}};
    if (info->kind == CertificateInfo::Kind::Client) {
        const auto client = ReadClient(*pem);
        rows.push_back({"Role", client ? std::string(RoleName(client->role)) : client.error().description});
    } else {
        for (const auto& name : info->names) rows.push_back({"Reached as", name});
    }
    rows.push_back({"Signed by", info->issuer});
    rows.push_back({"Valid from", info->begins});
    rows.push_back({"Valid until", info->ends + (info->isValidNow ? "" : "  (not valid now)")});
    rows.push_back({"SHA-256", info->fingerprint});
    WriteTable(context.out, rows);
    return {};
}

}  // namespace

void AddCertShow(CLI::App& cert, Context& context)
{
    const auto file = std::make_shared<std::string>();
    auto* command = cert.add_subcommand("show", "Show what a certificate says");
    command->add_option("FILE", *file, "A certificate in PEM")->required();
    command->callback([&context, file] {
        context.needsData = false;
        context.run = [&context, file] { return RunShow(context, *file); };
    });
}

}  // namespace zentrel
