#pragma once

#include <string>

// Looks a text up in the user's language. `context` groups texts for the translators, as in
// "CountersConsole". Answers the English text when there is no other.
std::string Translate(const char* context, const char* text);

// What Translate asks; to be set once, before any text is shown. Null answers the English texts again.
using Translator = std::string (*)(const char* context, const char* text);
void UseTranslator(Translator translator);

// Marks a text of a table for the translators. It stays the English one and is looked up where it is shown.
#define TRANSLATE_NOOP(context, text) text
