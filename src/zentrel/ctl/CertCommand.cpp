#include "zentrel/ctl/Context.h"
#include "zentrel/ctl/NewFile.h"

#include "zentrel/Printable.h"
#include "zentrel/TextFile.h"
#include "zentrel/remote/Certificates.h"

#include <sys/stat.h>

namespace zentrel {

namespace {

namespace fs = std::filesystem;

constexpr const char* kAuthority = "ca";
constexpr int kAuthorityDays = 3650;
constexpr int kDays = 365;
constexpr std::size_t kMostPemBytes = 1U << 16U;
constexpr mode_t kReadable = S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH;
constexpr mode_t kSecret = S_IRUSR | S_IWUSR;

struct Options {
    fs::path folder = ".";
    int days = kDays;
    bool force = false;
    std::string name;                // of the authority or the client
    std::vector<std::string> names;  // of the server
    std::string role;
};

using Shared = std::shared_ptr<Options>;

// Where a pair lies: NAME.pem and NAME.key.
fs::path CertificateFile(const Options& options, const std::string& name)
{
    return options.folder / (name + ".pem");
}

fs::path KeyFile(const Options& options, const std::string& name)
{
    return options.folder / (name + ".key");
}

Result<KeyPair> LoadAuthority(const Options& options)
{
    const auto key = ReadTextFile(KeyFile(options, kAuthority), kMostPemBytes);
    const auto certificate = ReadTextFile(CertificateFile(options, kAuthority), kMostPemBytes);
    if (key && certificate) return KeyPair{*certificate, *key};
    auto error = key ? certificate.error() : key.error();
    if (error.code == Code::FileNotFound)
        error.description =
            "There is no authority in " + options.folder.string() + "; zentrelctl cert authority makes one.";
    return Fail(std::move(error));
}

// Neither file is there unless both are whole.
Done Store(const Options& options, const std::string& name, const KeyPair& pair)
{
    auto key = NewFile::Write(KeyFile(options, name), kSecret, pair.key);
    if (!key) return Fail(key.error());
    auto certificate = NewFile::Write(CertificateFile(options, name), kReadable, pair.certificate);
    if (!certificate) return Fail(certificate.error());
    if (auto published = key->Publish(options.force); !published) return published;
    auto published = certificate->Publish(options.force);
    if (!published && !options.force) {
        std::error_code ignored;
        fs::remove(KeyFile(options, name), ignored);
    }
    return published;
}

void WriteMade(std::ostream& out, const Options& options, const std::string& name, std::string_view next)
{
    out << "Certificate: " << Printable(CertificateFile(options, name).string())
        << "\nPrivate key: " << Printable(KeyFile(options, name).string()) << "\n\n"
        << next;
}

// As both configurations name a pair.
std::string PairLines(const std::string& name)
{
    return "  certificate = " + name + ".pem\n  key = " + name + ".key\n";
}

Done RunAuthority(const Context& context, const Options& options)
{
    std::error_code error;
    if (!fs::exists(options.folder, error)) {
        fs::create_directories(options.folder, error);
        if (error) return FailErrno(error.value(), "zentrelctl", "Cannot make " + options.folder.string());
        fs::permissions(options.folder, fs::perms::owner_all, error);
    }
    const auto pair = MakeAuthority(options.name, options.days);
    if (!pair) return Fail(pair.error());
    if (auto stored = Store(options, kAuthority, *pair); !stored) return stored;
    const auto where = options.folder == "." ? "" : "--dir " + Printable(options.folder.string()) + " ";
    WriteMade(context.out, options, kAuthority,
              "Keep ca.key secret: who has it can make an administrator. It belongs on no server.\n"
              "Next, for every server and for every person:\n"
              "  zentrelctl cert server " +
                  where +
                  "NAME [NAME|ADDRESS...]\n"
                  "  zentrelctl cert client " +
                  where + "--role viewer|operator|admin NAME\n");
    return {};
}

Done RunServer(const Context& context, const Options& options)
{
    const auto authority = LoadAuthority(options);
    if (!authority) return Fail(authority.error());
    const auto pair = MakeServerCertificate(*authority, options.names, options.days);
    if (!pair) return Fail(pair.error());
    const auto& name = options.names.front();
    if (auto stored = Store(options, name, *pair); !stored) return stored;
    WriteMade(context.out, options, name,
              "Copy both and ca.pem to the server, where zentreld alone may read the key. Its configuration\n"
              "names them:\n"
              "  [network]\n"
              "  address = 0.0.0.0\n" +
                  PairLines(name) + "  client-ca = ca.pem\n");
    return {};
}

Done RunClient(const Context& context, const Options& options)
{
    const auto authority = LoadAuthority(options);
    if (!authority) return Fail(authority.error());
    const auto pair = MakeClientCertificate(*authority, options.name, *RoleFrom(options.role), options.days);
    if (!pair) return Fail(pair.error());
    if (auto stored = Store(options, options.name, *pair); !stored) return stored;
    WriteMade(context.out, options, options.name,
              "Give both and ca.pem to " + options.name +
                  ", for the folder of ~/.config/quillet/servers.conf, which names them:\n"
                  "  [defaults]\n"
                  "  ca = ca.pem\n" +
                  PairLines(options.name));
    return {};
}

// A person's certificate is named after the person.
std::string CheckClientName(const std::string& name)
{
    if (const auto checked = CheckPersonName(name); !checked) return checked.error().description;
    if (name.front() == '.' || name.find('/') != std::string::npos)
        return "A name becomes that of a file: it holds no / and begins with no dot.";
    return name == kAuthority ? "The name ca is the authority's." : "";
}

CLI::App* AddMaker(CLI::App& cert, Context& context, const char* name, const char* text,
                   const Shared& options, Done (*run)(const Context&, const Options&))
{
    auto* command = cert.add_subcommand(name, text);
    command->add_option("--dir", options->folder, "The folder of the certificates; this one when left out");
    command->add_option("--days", options->days, "How long it is valid")
        ->check(CLI::Range(1, kMostCertificateDays))
        ->capture_default_str();
    command->add_flag("--force", options->force, "Replace files that exist");
    command->callback([&context, options, run] {
        context.needsData = false;
        context.run = [&context, options, run] { return run(context, *options); };
    });
    return command;
}

void AddAuthority(CLI::App& cert, Context& context)
{
    const auto options = std::make_shared<Options>();
    options->days = kAuthorityDays;
    options->name = "Zentrel administration";
    auto* command = AddMaker(cert, context, "authority", "Make an authority, which signs all others", options,
                             RunAuthority);
    command->add_option("--name", options->name, "What it is called")
        ->check(CLI::Validator(
            [](const std::string& name) {
                const auto checked = CheckPersonName(name);
                return checked ? std::string() : checked.error().description;
            },
            ""))
        ->capture_default_str();
}

void AddServer(CLI::App& cert, Context& context)
{
    const auto options = std::make_shared<Options>();
    auto* command = AddMaker(cert, context, "server", "Make a server's certificate", options, RunServer);
    command->add_option("NAME", options->names, "Host names and addresses that clients reach it under")
        ->required()
        ->check(CLI::Validator(
            [](const std::string& name) -> std::string {
                const auto checked = CheckServerName(name);
                if (!checked) return checked.error().description;
                return name == kAuthority ? "The name ca is the authority's." : "";
            },
            ""));
}

void AddClient(CLI::App& cert, Context& context)
{
    const auto options = std::make_shared<Options>();
    auto* command = AddMaker(cert, context, "client", "Make a person's certificate", options, RunClient);
    command->add_option("--role", options->role, "What the person may do")
        ->required()
        ->check(CLI::IsMember({"viewer", "operator", "admin"}));
    command->add_option("NAME", options->name, "Who it is, as the server's audit will call them")
        ->required()
        ->check(CLI::Validator(CheckClientName, ""));
}

}  // namespace

void AddCertCommands(CLI::App& app, Context& context)
{
    auto* cert = app.add_subcommand("cert", "Certificates for remote servers")->require_subcommand(1);
    AddAuthority(*cert, context);
    AddServer(*cert, context);
    AddClient(*cert, context);
    AddCertShow(*cert, context);
}

}  // namespace zentrel
