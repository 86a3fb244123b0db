#include "administration/XmlPart.h"

#include "platform/base/Error.h"

namespace administration {

using namespace Qt::StringLiterals;

/// Passes on what a device gives, until it is too much.
class XmlPart::Limited final : public QIODevice
{
public:
    Limited(std::unique_ptr<QIODevice> device, Limits limits)
        : m_device(std::move(device))
        , m_limits(limits)
    {
        setOpenMode(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    [[nodiscard]] bool isSequential() const override { return true; }
    [[nodiscard]] qint64 count() const { return m_count; }
    [[nodiscard]] bool isTooLong() const { return m_isTooLong; }
    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }
    void breathe() { m_piece = 0; }

protected:
    qint64 readData(char *data, qint64 size) override
    {
        if (m_isTooLong || m_hasFailed)
            return -1;
        const qint64 read = m_device->read(data, size);
        m_hasFailed = read < 0;
        if (m_hasFailed)
            return -1;
        m_count += read;
        m_piece += read;
        // Counted as it is unpacked: what an archive says of its sizes may be made up.
        m_isTooLong = m_count > m_limits.whole || m_piece > m_limits.piece;
        return m_isTooLong ? -1 : read;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    std::unique_ptr<QIODevice> m_device;
    Limits m_limits;
    qint64 m_count = 0;
    qint64 m_piece = 0;
    bool m_isTooLong = false;
    bool m_hasFailed = false;
};

XmlPart::XmlPart(const ZipReader &archive, const QString &name, Limits limits)
    : m_archive(archive.path())
    , m_device(std::make_unique<Limited>(archive.open(name), limits))
    , m_xml(m_device.get())
{}

XmlPart::~XmlPart() = default;

QXmlStreamReader::TokenType XmlPart::read()
{
    const QXmlStreamReader::TokenType token = m_xml.readNext();
    // Ahead of the parser's own error, which only says that the text has ended.
    if (m_device->isTooLong())
        refuse(u"holds more than a table of records can, and was not read"_s);
    // No spreadsheet defines words of its own; they are the other way to make much of little.
    if (m_xml.hasError() || token == QXmlStreamReader::DTD)
        refuseDamaged();
    return token;
}

bool XmlPart::nextChild()
{
    for (;;) {
        switch (read()) {
        case QXmlStreamReader::StartElement:
            return true;
        case QXmlStreamReader::EndElement:
        case QXmlStreamReader::EndDocument:
            return false;
        default:
            break;
        }
    }
}

bool XmlPart::nextElement()
{
    for (;;) {
        const QXmlStreamReader::TokenType token = read();
        if (token == QXmlStreamReader::StartElement)
            return true;
        if (token == QXmlStreamReader::EndDocument)
            return false;
    }
}

QString XmlPart::text()
{
    QString text;
    // By hand, since the parser's own function would read past the limits.
    for (int depth = 1; depth > 0;) {
        switch (read()) {
        case QXmlStreamReader::StartElement:
            ++depth;
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        case QXmlStreamReader::Characters:
            text += m_xml.text();
            break;
        default:
            break;
        }
    }
    return text;
}

void XmlPart::skip()
{
    static_cast<void>(text());
}

void XmlPart::breathe()
{
    m_device->breathe();
}

void XmlPart::finish()
{
    // To the very end, where the archive compares its checksum: a table may be damaged and still be
    // well-formed.
    QByteArray rest(1 << 16, Qt::Uninitialized);
    while (m_device->read(rest.data(), rest.size()) > 0)
        breathe();
    if (m_device->hasFailed())
        refuseDamaged();
}

QString XmlPart::attribute(QStringView name) const
{
    for (const QXmlStreamAttribute &attribute : m_xml.attributes()) {
        if (attribute.name() == name)
            return attribute.value().toString();
    }
    return {};
}

qint64 XmlPart::count() const
{
    return m_device->count();
}

void XmlPart::refuse(const QString &why) const
{
    throw base::Error(base::ErrorNumber::InvalidCall, u"The file \"%1\" %2."_s.arg(m_archive, why));
}

void XmlPart::refuseDamaged() const
{
    refuse(u"is damaged: its table can't be read to the end"_s);
}

} // namespace administration
