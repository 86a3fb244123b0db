#include "platform/db/Engine.h"

#include "platform/db/EngineErrors.h"
#include "platform/db/EngineHome.h"

#include <cstdlib>

#ifdef __SANITIZE_ADDRESS__
/// The engine keeps some memory until the process ends; only our own leaks count.
extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfbclient\nleak:libEngine\n";
}
#endif

namespace db::engine {

namespace {

constexpr unsigned shutdownWait = 10'000; // milliseconds

} // namespace

Firebird::IMaster *master()
{
    // The engine reads its folder from the environment at the first call, and never again.
    static Firebird::IMaster *const instance = [] {
        prepareEngineHome();
        return Firebird::fb_get_master_interface();
    }();
    return instance;
}

Firebird::IProvider *provider()
{
    // Kept until the process ends, like the engine itself.
    static Firebird::IProvider *const instance = [] {
        Firebird::IProvider *const dispatcher = master()->getDispatcher();
        // Registered after the engine's own ends, so run before them.
        std::atexit([] { fb_shutdown(shutdownWait, fb_shutrsn_exit_called); });
        return dispatcher;
    }();
    return instance;
}

Status::Status()
    : BaseStatusWrapper(master()->getStatus())
{}

Status::~Status()
{
    status->dispose();
}

void Status::raise()
{
    throw errorFrom(getErrors());
}

namespace {

unsigned builderKind(ParameterBlock::Kind kind)
{
    switch (kind) {
    case ParameterBlock::Kind::Attach:
        return Firebird::IXpbBuilder::DPB;
    case ParameterBlock::Kind::Transaction:
        return Firebird::IXpbBuilder::TPB;
    case ParameterBlock::Kind::ServiceAttach:
        return Firebird::IXpbBuilder::SPB_ATTACH;
    case ParameterBlock::Kind::ServiceStart:
        break;
    }
    return Firebird::IXpbBuilder::SPB_START;
}

} // namespace

ParameterBlock::ParameterBlock(Kind kind)
    : m_builder(
          master()->getUtilInterface()->getXpbBuilder(&m_status, builderKind(kind), nullptr, 0))
{}

ParameterBlock::~ParameterBlock()
{
    m_builder->dispose();
}

void ParameterBlock::tag(unsigned char tag)
{
    m_builder->insertTag(&m_status, tag);
}

void ParameterBlock::number(unsigned char tag, int value)
{
    m_builder->insertInt(&m_status, tag, value);
}

void ParameterBlock::text(unsigned char tag, const QString &value)
{
    m_builder->insertString(&m_status, tag, utf8(value).constData());
}

unsigned ParameterBlock::length()
{
    return m_builder->getBufferLength(&m_status);
}

const unsigned char *ParameterBlock::data()
{
    return m_builder->getBuffer(&m_status);
}

} // namespace db::engine
