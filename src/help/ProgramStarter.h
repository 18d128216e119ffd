#pragma once

#include <filesystem>

// Starts other programs, which go on when this one ends.
class ProgramStarter {
public:
    virtual ~ProgramStarter() = default;
    virtual bool Start(const std::filesystem::path& program) = 0;
};
