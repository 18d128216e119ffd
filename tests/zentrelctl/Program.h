#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

// How a program ended and what it wrote.
struct Outcome {
    int exitCode = -1;  // 128 + N when signal N ended it
    std::string out;
    std::string err;
};

// A program that runs beside the test. Destroying it kills what still runs.
class Program {
public:
    enum class Input {
        Given,     // the text, then the end
        Open,      // the text, and more could follow
        Terminal,  // the text is typed; output and errors come out of the terminal together
    };

    Program(const std::string& file, const std::vector<std::string>& arguments, std::string_view text = {},
            Input input = Input::Given);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    void Signal(int number) const;
    bool WaitForError(std::string_view text);  // until it wrote this to stderr; false after 20 seconds
    Outcome Wait();                            // until it ends

private:
    void ReadTerminal(Outcome& outcome) const;

    pid_t m_pid = -1;
    int m_input = -1;  // what the test writes to: a pipe, or the terminal's other side
    int m_out = -1;    // files in memory
    int m_err = -1;
    bool m_isTerminal = false;
};

// Runs a program to its end.
inline Outcome RunProgram(const std::string& file, const std::vector<std::string>& arguments,
                          std::string_view text = {}, Program::Input input = Program::Input::Given)
{
    return Program(file, arguments, text, input).Wait();
}
