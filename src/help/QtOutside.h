#pragma once

#include "help/ProgramStarter.h"
#include "help/WebOpener.h"

class QtWebOpener : public WebOpener {
public:
    void Open(const std::string& address) override;
};

class QtProgramStarter : public ProgramStarter {
public:
    bool Start(const std::filesystem::path& program) override;
};
