#include "platform/report/paginate/BarCode.h"

#include <memory>
#include <zint.h>

namespace report {

std::optional<BarCodeItem> barCode(const QString &text, const QRect &frame)
{
    const std::unique_ptr<zint_symbol, decltype(&ZBarcode_Delete)> symbol(ZBarcode_Create(),
                                                                          &ZBarcode_Delete);
    const QByteArray bytes = text.toUtf8();
    if (!symbol || bytes.isEmpty())
        return std::nullopt;
    symbol->symbology = BARCODE_CODE128;
    symbol->input_mode = UNICODE_MODE;
    symbol->show_hrt = 0;
    QByteArray source = bytes;
    if (ZBarcode_Encode(symbol.get(), reinterpret_cast<unsigned char *>(source.data()),
                        static_cast<int>(source.size())) >= ZINT_ERROR ||
        symbol->width <= 0)
        return std::nullopt;

    BarCodeItem item{frame, {}};
    const auto isDark = [&](int module) {
        return (symbol->encoded_data[0][module >> 3] >> (module & 7)) & 1;
    };
    const auto edge = [&](int module) {
        return frame.left() + static_cast<int>(qint64(frame.width()) * module / symbol->width);
    };
    for (int module = 0; module < symbol->width; ++module) {
        if (!isDark(module))
            continue;
        int end = module + 1;
        while (end < symbol->width && isDark(end))
            ++end;
        item.bars.append(
            QRect(edge(module), frame.top(), edge(end) - edge(module), frame.height()));
        module = end;
    }
    return item;
}

} // namespace report
