#pragma once

#include "platform/report/render/OutputFile.h"

#include <vector>

namespace report {

/// The objects of a PDF file, written one after another under numbers that others can refer to
/// before they are there. All raise base::Error when the file can't be written.
class PdfDocument
{
public:
    explicit PdfDocument(const QString &path);

    /// A number for an object that is written later.
    [[nodiscard]] int reserve();
    /// Writes an object as it stands.
    void write(int number, const QByteArray &body);
    /// Writes bytes with the entries of their dictionary, packed.
    void writeStream(int number, const QByteArray &entries, const QByteArray &bytes);
    /// Writes bytes that are packed already, in the way that the entries tell.
    void writePacked(int number, const QByteArray &entries, const QByteArray &bytes);
    /// Puts the file in its place.
    void finish(int catalogue, int information);

private:
    void put(const QByteArray &bytes);

    OutputFile m_file;
    std::vector<qint64> m_offsets; ///< of the objects, by their numbers; the first has none
    qint64 m_size = 0;
};

/// "7 0 R", which stands for the object of a number.
[[nodiscard]] QByteArray pdfReference(int number);
/// A text in the form that takes all letters.
[[nodiscard]] QByteArray pdfText(const QString &text);

} // namespace report
