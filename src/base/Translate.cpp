#include "base/Translate.h"

#include <atomic>

namespace {

std::atomic<Translator> s_translator = nullptr;  // the language is one for the whole process

}  // namespace

std::string Translate(const char* context, const char* text)
{
    const auto translator = s_translator.load(std::memory_order_relaxed);
    return translator == nullptr ? text : translator(context, text);
}

void UseTranslator(Translator translator)
{
    s_translator.store(translator, std::memory_order_relaxed);
}
