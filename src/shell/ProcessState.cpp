#include "shell/ProcessState.h"

#include "platform/ComputerName.h"

#include <utility>

ProcessState::ProcessState(std::shared_ptr<zentrel::Transport> servers)
    : locale(ReadUserLocale()),
      contents(locale),
      computerName(ComputerName()),
      transport(std::move(servers)),
      server(transport),
      cache(transport)
{
}
