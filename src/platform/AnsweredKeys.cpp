#include "platform/AnsweredKeys.h"

#include "platform/Odbc.h"
#include "platform/SystemInformation.h"

#include <utility>

namespace {

std::vector<AnsweredValue> SystemInformationValues()
{
    const auto program = SystemInformationProgram();
    if (program.empty()) return {};
    return {{"PATH", program.string()}};
}

std::vector<AnsweredValue> OdbcSourceValues()
{
    std::vector<AnsweredValue> values;
    for (auto& source : OdbcSources()) values.push_back({std::move(source.name), std::move(source.driver)});
    return values;
}

}  // namespace

std::vector<AnsweredKey> AnsweredKeys()
{
    return {{R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)", SystemInformationValues},
            {R"(SOFTWARE\ODBC\ODBC.INI\ODBC Data Sources)", OdbcSourceValues}};
}
