#pragma once

#include "base/Result.h"
#include "zentrel/Service.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

namespace zentrel {

// What the commands share. A command's own function adds its options and, when the user has chosen it,
// puts into `run` what is to be done; wrong usage is told by a CLI::ParseError before anything runs.
struct Context {
    std::filesystem::path data;  // the data folder
    std::ostream& out;           // what the user asked for; progress and errors go to stderr
    std::function<Done()> run = {};
    bool needsData = true;  // whether the command works on a data folder

    Result<std::shared_ptr<Service>> Open(Service::Role role) const { return Service::Open(data, role); }
};

void AddSiteCommands(CLI::App& app, Context& context);     // init, site, vdir
void AddWarmCommand(CLI::App& app, Context& context);      // warm
void AddReplayCommand(CLI::App& app, Context& context);    // replay
void AddListCommand(CLI::App& app, Context& context);      // ls
void AddGetCommand(CLI::App& app, Context& context);       // get
void AddRemoveCommand(CLI::App& app, Context& context);    // rm
void AddCountersCommand(CLI::App& app, Context& context);  // counters
void AddCertCommands(CLI::App& app, Context& context);     // cert
void AddCertShow(CLI::App& cert, Context& context);        // cert show
void AddServiceCommands(CLI::App& app, Context& context);  // service

// Checks for options: a path of the store, and a path within a site.
CLI::Validator KeyPathCheck();
// The option for a site's number, 1 upward.
CLI::Option* AddSiteNumber(CLI::App& command, const std::string& name, std::uint32_t& number);

// "1 entry", "2 entries".
std::string Counted(std::uint64_t count, std::string_view one, std::string_view several);

// The failure of a command that the user ended early.
tl::unexpected<SystemError> Cancelled(std::string description);

}  // namespace zentrel
