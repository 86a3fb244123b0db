#pragma once

#include "administration/ZipFile.h"

#include <QXmlStreamReader>
#include <memory>

namespace administration {

/// An XML file of an archive, read within limits: what somebody has made to fill the memory of
/// whoever opens it is refused before it does. All raise base::Error with a sentence that names the
/// archive.
class XmlPart
{
public:
    struct Limits
    {
        qint64 whole = qint64(16) << 20; ///< bytes, unpacked
        qint64 piece = qint64(1) << 20;  ///< bytes from one breath to the next
    };

    /// Raises FileNotFound when the archive holds no such file.
    XmlPart(const ZipReader &archive, const QString &name, Limits limits);
    ~XmlPart();
    XmlPart(const XmlPart &) = delete;
    XmlPart &operator=(const XmlPart &) = delete;

    /// Goes to the next thing in the file.
    QXmlStreamReader::TokenType read();
    /// Goes to the next child of the element that was begun last, or to its end; False then.
    bool nextChild();
    /// Goes to the next element anywhere; False at the file's end.
    bool nextElement();
    /// The text up to the end of the element that was begun last, of its children too.
    [[nodiscard]] QString text();
    /// Goes to the end of the element that was begun last.
    void skip();
    /// A piece is complete: the next one may be as long again.
    void breathe();
    /// Reads the rest, which shows whether all of it was as it was packed.
    void finish();

    [[nodiscard]] QStringView name() const { return m_xml.name(); }
    [[nodiscard]] bool isEnd() const { return m_xml.isEndElement(); }
    /// An attribute by its name, whatever stands before a colon; empty without one.
    [[nodiscard]] QString attribute(QStringView name) const;
    /// Bytes that were read.
    [[nodiscard]] qint64 count() const;

    /// why goes on from "The file ...".
    [[noreturn]] void refuse(const QString &why) const;
    [[noreturn]] void refuseDamaged() const;

private:
    class Limited;

    QString m_archive;
    std::unique_ptr<Limited> m_device;
    QXmlStreamReader m_xml;
};

} // namespace administration
