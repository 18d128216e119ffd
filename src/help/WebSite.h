#pragma once

#include <string>

class RegistryStore;

// Where the product's web site is when the settings do not say it.
inline constexpr const char* kWebSite = "https://quillet.example/";

// The setting "WebSite", when it is the address of a web page, else kWebSite.
std::string WebSiteAddress(RegistryStore& registry);
