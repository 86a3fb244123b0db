#pragma once

#include "platform/report/layout/Layout.h"

#include <optional>

/// The words of the layout file for kinds and alignments.
namespace report::words {

template<class Kind>
struct Word
{
    QStringView text;
    Kind kind;
};

inline constexpr Word<BandKind> Bands[] = {
    {u"reportHeader", BandKind::ReportHeader}, {u"pageHeader", BandKind::PageHeader},
    {u"groupHeader", BandKind::GroupHeader},   {u"detail", BandKind::Detail},
    {u"subHeader", BandKind::SubHeader},       {u"subDetail", BandKind::SubDetail},
    {u"subFooter", BandKind::SubFooter},       {u"groupFooter", BandKind::GroupFooter},
    {u"reportFooter", BandKind::ReportFooter}, {u"pageFooter", BandKind::PageFooter}};

inline constexpr Word<ParameterType> ParameterTypes[] = {{u"text", ParameterType::Text},
                                                         {u"number", ParameterType::Number},
                                                         {u"date", ParameterType::Date},
                                                         {u"yesNo", ParameterType::YesNo}};

inline constexpr Word<ObjectKind> Objects[] = {
    {u"text", ObjectKind::Text},       {u"field", ObjectKind::Field},
    {u"line", ObjectKind::Line},       {u"box", ObjectKind::Box},
    {u"picture", ObjectKind::Picture}, {u"barCode", ObjectKind::BarCode},
    {u"chart", ObjectKind::Chart},     {u"crossTab", ObjectKind::CrossTab}};

inline constexpr Word<ChartKind> ChartKinds[] = {{u"bars", ChartKind::Bars},
                                                 {u"stackedBars", ChartKind::StackedBars},
                                                 {u"line", ChartKind::Line}};

inline constexpr Word<LegendPlace> LegendPlaces[] = {
    {u"bottom", LegendPlace::Bottom}, {u"right", LegendPlace::Right}, {u"none", LegendPlace::None}};

inline constexpr Word<ChartOrder> ChartOrders[] = {{u"rows", ChartOrder::Rows},
                                                   {u"category", ChartOrder::Category},
                                                   {u"value", ChartOrder::Value}};

inline constexpr Word<Align> Aligns[] = {
    {u"left", Align::Left}, {u"center", Align::Center}, {u"right", Align::Right}};

inline constexpr Word<VerticalAlign> VerticalAligns[] = {{u"top", VerticalAlign::Top},
                                                         {u"middle", VerticalAlign::Middle},
                                                         {u"bottom", VerticalAlign::Bottom}};

/// What a word of the file means; none for a word that isn't in the list.
template<class Kind, std::size_t Count>
[[nodiscard]] std::optional<Kind> kindOf(const Word<Kind> (&words)[Count], QStringView text)
{
    for (const Word<Kind> &word : words)
        if (word.text == text)
            return word.kind;
    return std::nullopt;
}

/// The word that a kind is written with.
template<class Kind, std::size_t Count>
[[nodiscard]] QString textOf(const Word<Kind> (&words)[Count], Kind kind)
{
    for (const Word<Kind> &word : words)
        if (word.kind == kind)
            return word.text.toString();
    return {};
}

} // namespace report::words
