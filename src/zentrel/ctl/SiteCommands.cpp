#include "zentrel/ctl/Context.h"
#include "zentrel/ctl/Json.h"
#include "zentrel/ctl/Table.h"

#include "base/Text.h"

namespace zentrel {

namespace {

std::string EncodingName(Encoding encoding)
{
    return encoding == Encoding::Gzip ? "gzip" : "deflate";
}

std::string Joined(const std::vector<std::string>& texts)
{
    std::string all;
    for (const auto& text : texts) all += (all.empty() ? "" : " ") + text;
    return all;
}

// "address:port:host": address and host may be empty, an address of version 6 stands in brackets.
std::string CheckBinding(const std::string& binding)
{
    const auto host = binding.rfind(':');
    const auto port = host == std::string::npos || host == 0 ? host : binding.rfind(':', host - 1);
    if (host == std::string::npos || port == std::string::npos || host == port)
        return "A binding has the form ADDRESS:PORT:HOST: " + binding;
    const auto digits = binding.substr(port + 1, host - port - 1);
    const bool isNumber =
        !digits.empty() && digits.size() <= 5 && digits.find_first_not_of("0123456789") == std::string::npos;
    const int number = isNumber ? std::stoi(digits) : 0;
    return number >= 1 && number <= 65535 ? std::string{} : "A port is a number from 1 to 65535: " + binding;
}

std::string CheckText(const std::string& text)
{
    return IsValidUtf8(text) ? std::string{} : "A text is not valid UTF-8.";
}

void WriteSitesJson(std::ostream& out, const std::vector<SiteConfig>& sites)
{
    JsonWriter json(out);
    json.BeginArray();
    for (const auto& site : sites) {
        json.BeginObject().Key("number").Number(site.number).Key("comment").Text(site.comment);
        json.Key("bindings").BeginArray();
        for (const auto& binding : site.bindings) json.Text(binding);
        json.EndArray();
        json.Key("root").Text(site.documentRoot.string());
        json.Key("encoding").Text(EncodingName(site.encoding)).Key("level").Number(site.level).EndObject();
    }
    json.EndArray();
}

void WriteSites(std::ostream& out, const std::vector<SiteConfig>& sites)
{
    std::vector<std::vector<std::string>> rows{{"SITE", "ENCODING", "LEVEL", "BINDINGS", "COMMENT", "ROOT"}};
    for (const auto& site : sites)
        rows.push_back({std::to_string(site.number), EncodingName(site.encoding), std::to_string(site.level),
                        Joined(site.bindings), site.comment, site.documentRoot.string()});
    WriteTable(out, rows);
}

void AddSiteAdd(CLI::App& site, Context& context)
{
    const auto config = std::make_shared<SiteConfig>();
    auto* command = site.add_subcommand("add", "Add a web site whose files lie below a document root");
    AddSiteNumber(*command, "NUMBER", config->number);
    command->add_option("--comment", config->comment, "The site's name for people")
        ->required()
        ->check(CLI::Validator(CheckText, ""));
    command->add_option("--root", config->documentRoot, "The document root, an existing folder")->required();
    command->add_option("--binding", config->bindings, "ADDRESS:PORT:HOST, once or more")
        ->check(CLI::Validator(CheckBinding, ""))
        ->check(CLI::Validator(CheckText, ""));
    const auto encoding = std::make_shared<std::string>(EncodingName(config->encoding));
    command->add_option("--encoding", *encoding, "What the cached files hold; gzip when left out")
        ->check(CLI::IsMember({"gzip", "deflate"}));
    command->add_option("--level", config->level, "Compression level, 1 to 9; 6 when left out")
        ->check(CLI::Range(1, 9));
    command->callback([&context, config, encoding] {
        config->encoding = *encoding == "gzip" ? Encoding::Gzip : Encoding::Deflate;
        context.run = [&context, config]() -> Done {
            const auto service = context.Open(Service::Role::Writer);
            return service ? (*service)->AddSite(*config) : Fail(service.error());
        };
    });
}

void AddSiteList(CLI::App& site, Context& context)
{
    const auto asJson = std::make_shared<bool>(false);
    auto* command = site.add_subcommand("list", "List the web sites");
    command->add_flag("--json", *asJson, "Print JSON");
    command->callback([&context, asJson] {
        context.run = [&context, asJson]() -> Done {
            const auto service = context.Open(Service::Role::Viewer);
            if (!service) return Fail(service.error());
            const auto sites = (*service)->Sites();
            if (!sites) return Fail(sites.error());
            *asJson ? WriteSitesJson(context.out, *sites) : WriteSites(context.out, *sites);
            return {};
        };
    });
}

struct VirtualDirOptions {
    std::uint32_t site = 0;
    VirtualDir directory;
};

void AddVirtualDirAdd(CLI::App& vdir, Context& context)
{
    const auto options = std::make_shared<VirtualDirOptions>();
    auto* command = vdir.add_subcommand("add", "Serve a path of a site from another folder");
    AddSiteNumber(*command, "SITE", options->site);
    command->add_option("URLPATH", options->directory.urlPath, "The path within the site, for example /img")
        ->required()
        ->check(KeyPathCheck());
    command->add_option("DIR", options->directory.target, "An existing folder")->required();
    command->callback([&context, options] {
        context.run = [&context, options]() -> Done {
            const auto service = context.Open(Service::Role::Writer);
            if (!service) return Fail(service.error());
            return (*service)->AddVirtualDir(options->site, options->directory.urlPath,
                                             options->directory.target);
        };
    });
}

}  // namespace

void AddSiteCommands(CLI::App& app, Context& context)
{
    auto* init = app.add_subcommand("init", "Make a data folder");
    init->callback([&context] { context.run = [&context] { return Service::Init(context.data); }; });

    auto* site = app.add_subcommand("site", "Web sites")->require_subcommand(1);
    AddSiteAdd(*site, context);
    AddSiteList(*site, context);
    auto* vdir = app.add_subcommand("vdir", "Virtual directories")->require_subcommand(1);
    AddVirtualDirAdd(*vdir, context);
}

}  // namespace zentrel
