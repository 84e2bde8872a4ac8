#include "ui/plot/PlotDesign.h"

#include <array>

namespace portico {
namespace {

using numbers::ByteOrder;
using numbers::ElementType;
using plot::CurveKind;

constexpr std::array Menus = {
    MenuDesign{.Name = u"mnuFile", .Caption = u"&File"},
    MenuDesign{.Name = u"mnuSavePng", .Caption = u"Save as P&NG...", .Parent = u"mnuFile"},
    MenuDesign{.Name = u"mnuSaveSvg", .Caption = u"Save as &SVG...", .Parent = u"mnuFile"},
    MenuDesign{.Name = u"mnuSavePdf", .Caption = u"Save as P&DF...", .Parent = u"mnuFile"},
    MenuDesign{.Name = u"mnuSaveCsv", .Caption = u"Save as &CSV...", .Parent = u"mnuFile"},
    MenuDesign{.Name = u"mnuFileBar0", .Caption = BarCaption, .Parent = u"mnuFile"},
    MenuDesign{.Name = u"mnuPrint", .Caption = u"&Print...", .Parent = u"mnuFile", .Shortcut = u"Ctrl+P"},
    MenuDesign{.Name = u"mnuFileBar1", .Caption = BarCaption, .Parent = u"mnuFile"},
    MenuDesign{.Name = u"mnuClose", .Caption = u"C&lose", .Parent = u"mnuFile", .Shortcut = u"Ctrl+W"},

    MenuDesign{.Name = u"mnuCurves", .Caption = u"&Curves"},
    MenuDesign{.Name = u"mnuOverTime", .Caption = u"Answers over &Time", .Parent = u"mnuCurves", .Checked = true},
    MenuDesign{.Name = u"mnuOverIndex", .Caption = u"&Last Answer", .Parent = u"mnuCurves"},
    MenuDesign{.Name = u"mnuCurvesBar0", .Caption = BarCaption, .Parent = u"mnuCurves"},
    MenuDesign{.Name = u"mnuType", .Caption = u"&Numbers of Blocks", .Parent = u"mnuCurves"},
    MenuDesign{.Name = u"mnuTypeTold", .Caption = u"As the &Conversation Tells", .Parent = u"mnuType", .Checked = true},
    MenuDesign{.Name = u"mnuInt8", .Caption = u"&8-Bit Integers", .Parent = u"mnuType"},
    MenuDesign{.Name = u"mnuUInt8", .Caption = u"8-Bit Integers without &Sign", .Parent = u"mnuType"},
    MenuDesign{.Name = u"mnuInt16", .Caption = u"&16-Bit Integers", .Parent = u"mnuType"},
    MenuDesign{.Name = u"mnuUInt16", .Caption = u"16-Bit Integers &without Sign", .Parent = u"mnuType"},
    MenuDesign{.Name = u"mnuInt32", .Caption = u"&32-Bit Integers", .Parent = u"mnuType"},
    MenuDesign{.Name = u"mnuUInt32", .Caption = u"32-Bit Integers without S&ign", .Parent = u"mnuType"},
    MenuDesign{.Name = u"mnuFloat32", .Caption = u"32-Bit &Floats", .Parent = u"mnuType"},
    MenuDesign{.Name = u"mnuFloat64", .Caption = u"&64-Bit Floats", .Parent = u"mnuType"},
    MenuDesign{.Name = u"mnuOrder", .Caption = u"&Byte Order of Blocks", .Parent = u"mnuCurves"},
    MenuDesign{
        .Name = u"mnuOrderTold", .Caption = u"As the &Conversation Tells", .Parent = u"mnuOrder", .Checked = true},
    MenuDesign{.Name = u"mnuMostFirst", .Caption = u"&Most Significant First", .Parent = u"mnuOrder"},
    MenuDesign{.Name = u"mnuLeastFirst", .Caption = u"&Least Significant First", .Parent = u"mnuOrder"},

    MenuDesign{.Name = u"mnuView", .Caption = u"&View"},
    MenuDesign{.Name = u"mnuZoomIn", .Caption = u"Zoom &In", .Parent = u"mnuView", .Shortcut = u"Ctrl+I"},
    MenuDesign{.Name = u"mnuZoomOut", .Caption = u"Zoom &Out", .Parent = u"mnuView", .Shortcut = u"Ctrl+O"},
    MenuDesign{.Name = u"mnuShowAll", .Caption = u"Show &All", .Parent = u"mnuView", .Shortcut = u"Ctrl+0"},
    MenuDesign{.Name = u"mnuViewBar0", .Caption = BarCaption, .Parent = u"mnuView"},
    MenuDesign{.Name = u"mnuCursor1", .Caption = u"Set Cursor &1", .Parent = u"mnuView", .Shortcut = u"Ctrl+1"},
    MenuDesign{.Name = u"mnuCursor2", .Caption = u"Set Cursor &2", .Parent = u"mnuView", .Shortcut = u"Ctrl+2"},
    MenuDesign{.Name = u"mnuNoCursors", .Caption = u"&Remove Cursors", .Parent = u"mnuView"},
};

constexpr std::array Controls = {
    ControlDesign{.Kind = ControlKind::ListView, .Name = u"lstQueries", .ToolTipText = u"Queries"},
    ControlDesign{.Kind = ControlKind::Canvas, .Name = u"cnvPlot"},
    ControlDesign{.Kind = ControlKind::ListView, .Name = u"lstValues", .ToolTipText = u"What is seen of the curves"},
};

constexpr std::array Kinds = {
    ChoiceItem<CurveKind>{u"mnuOverTime", CurveKind::OverTime},
    ChoiceItem<CurveKind>{u"mnuOverIndex", CurveKind::OverIndex},
};

using TypeItem = ChoiceItem<std::optional<ElementType>>;
constexpr std::array Types = {
    TypeItem{u"mnuTypeTold", {}},
    TypeItem{u"mnuInt8", ElementType::Int8},
    TypeItem{u"mnuUInt8", ElementType::UInt8},
    TypeItem{u"mnuInt16", ElementType::Int16},
    TypeItem{u"mnuUInt16", ElementType::UInt16},
    TypeItem{u"mnuInt32", ElementType::Int32},
    TypeItem{u"mnuUInt32", ElementType::UInt32},
    TypeItem{u"mnuFloat32", ElementType::Float32},
    TypeItem{u"mnuFloat64", ElementType::Float64},
};

using OrderItem = ChoiceItem<std::optional<ByteOrder>>;
constexpr std::array Orders = {
    OrderItem{u"mnuOrderTold", {}},
    OrderItem{u"mnuMostFirst", ByteOrder::MostSignificantFirst},
    OrderItem{u"mnuLeastFirst", ByteOrder::LeastSignificantFirst},
};

} // namespace

constinit const FormDesign PlotDesign = {
    .Name = u"frmPlot", .Caption = u"Plot", .Style = FormStyle::Window, .Menus = Menus, .Controls = Controls};

std::span<const ChoiceItem<CurveKind>> KindItems() { return Kinds; }
std::span<const TypeItem> TypeItems() { return Types; }
std::span<const OrderItem> OrderItems() { return Orders; }

} // namespace portico
