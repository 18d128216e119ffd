#include "shell/ProcessState.h"

#include "platform/ComputerName.h"

#include <utility>

namespace {

Settings LoadSettings(SettingsStore& store)
{
    store.CreateKey();
    return store.Load();
}

}  // namespace

ProcessState::ProcessState(std::shared_ptr<zentrel::Transport> servers,
                           std::shared_ptr<zentrel::Transport> counterServers, RegistryStore& store)
    : locale(ReadUserLocale()),
      contents(locale),
      computerName(ComputerName()),
      registry(store),
      settingsStore(store),
      settings(LoadSettings(settingsStore)),
      transport(std::move(servers)),
      server(transport),
      cache(transport),
      counterSource(std::move(counterServers)),
      performanceData(counterSource),
      counters(performanceData),
      counterList(MakeCounterList())
{
}
