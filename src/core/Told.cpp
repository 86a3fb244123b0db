#include "core/Told.h"

#include "platform/base/Prompts.h"

namespace told {
namespace {

using Icon = base::Prompts::Icon;

Listener *&innermost()
{
    static Listener *listener = nullptr;
    return listener;
}

void tell(const QString &sentence, Icon icon, const QString &title = {})
{
    if (Listener *listener = innermost())
        listener->hear(sentence);
    else
        base::prompts().show({.text = sentence, .icon = icon, .title = title});
}

} // namespace

Listener::Listener()
    : m_outer(innermost())
{
    innermost() = this;
}

Listener::~Listener()
{
    innermost() = m_outer;
}

void message(const QString &sentence, const QString &title)
{
    tell(sentence, Icon::None, title);
}

void information(const QString &sentence)
{
    tell(sentence, Icon::Information);
}

void critical(const QString &sentence)
{
    tell(sentence, Icon::Critical);
}

} // namespace told
