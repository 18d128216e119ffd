#include "export/SecretText.h"

#include <utility>

#include <string.h>

void Wipe(std::string& text)
{
    text.resize(text.capacity());
    explicit_bzero(text.data(), text.size());
    text.clear();
}

SharedLogin ShareLogin(std::string source, std::string user, std::string&& password)
{
    const auto wipe = [](OdbcLogin* login) {
        Wipe(login->password);
        std::default_delete<OdbcLogin>()(login);
    };
    const std::shared_ptr<OdbcLogin> login(new OdbcLogin, wipe);
    login->source = std::move(source);
    login->user = std::move(user);
    login->password.reserve(password.size());  // what follows leaves no other copy behind
    login->password = std::string_view(password);
    Wipe(password);
    return login;
}
