#include "platform/web/Fetch.h"

#include "support/HttpServer.h"
#include "support/Raised.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;
using test::HttpServer;

namespace {

struct Fetch : testing::Test
{
    /// The loopback is asked directly, whatever proxy the computer has.
    Fetch()
    {
        for (const char *proxy : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"})
            qunsetenv(proxy);
    }
};

constexpr web::FetchLimits Small{.bytes = 1000, .seconds = 1};

} // namespace

TEST_F(Fetch, BringsWhatStandsThereAndFollowsTheWeb)
{
    const HttpServer server({{"/feed.xml", HttpServer::page("<a/>")},
                             {"/old", HttpServer::redirect("/feed.xml")},
                             {"/full", HttpServer::page(QByteArray(1000, 'x'))}});
    EXPECT_EQ(web::fetch(server.site() + u"/feed.xml"_s), "<a/>");
    EXPECT_EQ(web::fetch(server.site() + u"/old"_s), "<a/>");
    EXPECT_EQ(web::fetch(server.site() + u"/full"_s, {}, Small).size(), 1000);
}

TEST_F(Fetch, TellsWhyNothingIsBrought)
{
    // Nobody vouches for these, and the second is another host's.
    const test::TestCertificate own(u"localhost"_s);
    const test::TestCertificate others(u"updates.example"_s);
    const HttpServer secured({{"/feed.xml", HttpServer::page("<a/>")}}, &own);
    const HttpServer strange({{"/feed.xml", HttpServer::page("<a/>")}}, &others);
    const HttpServer server(
        {{"/secured", HttpServer::redirect(secured.site().toUtf8() + "/feed.xml")},
         {"/file", HttpServer::redirect("file:///etc/hostname")},
         {"/ftp", HttpServer::redirect("ftp://localhost/feed.xml")},
         {"/round", HttpServer::redirect("/round")},
         {"/long", HttpServer::page(QByteArray(1001, 'x'))},
         {"/announced",
          "HTTP/1.1 200 OK\r\nContent-Length: 1073741824\r\n\r\n" + QByteArray(100'000, 'x')},
         {"/broken", "HTTP/1.1 500 Sorry\r\nConnection: close\r\nContent-Length: 0\r\n\r\n"},
         {"/slow", ""}});
    const std::pair<QString, const char *> cases[] = {
        {secured.site() + u"/feed.xml"_s, "The certificate of \"localhost\" is not valid"},
        {strange.site() + u"/feed.xml"_s, "The certificate of \"localhost\" is not valid"},
        {server.site() + u"/secured"_s, "The certificate of \"localhost\" is not valid"},
        {server.site() + u"/file"_s, "leads to an address that is not followed"},
        {server.site() + u"/ftp"_s, "leads to an address that is not followed"},
        {server.site() + u"/round"_s, "leads to an address that is not followed"},
        {server.site() + u"/long"_s, "longer than 1000 bytes"},
        {server.site() + u"/announced"_s, "longer than 1000 bytes"},
        {server.site() + u"/none"_s, "the error 404"},
        {server.site() + u"/broken"_s, "the error 500"},
        {server.site() + u"/slow"_s, "did not answer in time"},
        {u"http://localhost:1/"_s, "can't be reached"},
        {u"file:///etc/hostname"_s, "is not an address of the web"},
        {u"http:///feed.xml"_s, "is not an address of the web"},
        {u"javascript:alert(1)"_s, "is not an address of the web"},
    };
    for (const auto &[address, told] : cases) {
        const auto error =
            test::raisedBy([&] { static_cast<void>(web::fetch(address, {}, Small)); });
        EXPECT_TRUE(error.description().contains(QLatin1StringView(told)))
            << address.toStdString() << " -> " << error.what();
    }
}

TEST_F(Fetch, IsCancelledWhileTheServerHangs)
{
    const HttpServer server({{"/slow", ""}});
    QElapsedTimer clock;
    clock.start();
    EXPECT_THROW(static_cast<void>(
                     web::fetch(server.site() + u"/slow"_s,
                                {.tell = {}, .cancelled = [&] { return clock.elapsed() > 100; }})),
                 base::Cancelled);
    EXPECT_LT(clock.elapsed(), 10'000);
}
