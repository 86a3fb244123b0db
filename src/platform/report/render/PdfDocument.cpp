#include "platform/report/render/PdfDocument.h"

#include <QtEndian>

namespace report {

PdfDocument::PdfDocument(const QString &path)
    : m_file(path)
    // Number 0 is the format's own, at the head of the list of free ones.
    , m_offsets(1)
{
    // The second line marks the file as one that is not only text.
    put("%PDF-1.5\n%\xe2\xe3\xcf\xd3\n");
}

int PdfDocument::reserve()
{
    m_offsets.push_back(0);
    return static_cast<int>(m_offsets.size()) - 1;
}

void PdfDocument::write(int number, const QByteArray &body)
{
    // Parts may be written in any order after they were reserved: the table at the end says where
    // each one is.
    m_offsets[static_cast<std::size_t>(number)] = m_size;
    put(QByteArray::number(number) + " 0 obj\n" + body + "\nendobj\n");
}

void PdfDocument::writeStream(int number, const QByteArray &entries, const QByteArray &bytes)
{
    // The length that is put ahead of what the library packs is none of the format's.
    constexpr qsizetype LengthAhead = 4;
    // The usual level takes a third longer for a file that is 4 % smaller.
    constexpr int Level = 4;
    writePacked(number, entries + " /Filter /FlateDecode",
                qCompress(bytes, Level).sliced(LengthAhead));
}

void PdfDocument::writePacked(int number, const QByteArray &entries, const QByteArray &bytes)
{
    write(number, "<<" + entries + " /Length " + QByteArray::number(bytes.size()) +
                      " >>\nstream\n" + bytes + "\nendstream");
}

void PdfDocument::finish(int catalogue, int information)
{
    const qint64 start = m_size;
    const QByteArray count = QByteArray::number(qulonglong(m_offsets.size()));
    QByteArray table = "xref\n0 " + count + "\n0000000000 65535 f \n";
    for (std::size_t number = 1; number < m_offsets.size(); ++number)
        table += QByteArray::number(m_offsets[number]).rightJustified(10, '0') + " 00000 n \n";
    put(table + "trailer\n<< /Size " + count + " /Root " + pdfReference(catalogue) + " /Info " +
        pdfReference(information) + " >>\nstartxref\n" + QByteArray::number(start) + "\n%%EOF\n");
    m_file.finish();
}

void PdfDocument::put(const QByteArray &bytes)
{
    m_file.write(bytes);
    m_size += bytes.size();
}

QByteArray pdfReference(int number)
{
    return QByteArray::number(number) + " 0 R";
}

QByteArray pdfText(const QString &text)
{
    QByteArray bytes = "\xfe\xff";
    for (const QChar letter : text) {
        const char16_t bigEndian = qToBigEndian(letter.unicode());
        bytes.append(reinterpret_cast<const char *>(&bigEndian), sizeof bigEndian);
    }
    return '<' + bytes.toHex() + '>';
}

} // namespace report
