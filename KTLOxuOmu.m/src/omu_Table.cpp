#include <algorithm>
#include <memory>
#include <omu_ItemReader.h>
#include <omu_PrimString.h>
#include <omu_Table.h>
#include <omu_Utf8.h>
#include <string>
#include <vector>

namespace
{
constexpr const char* SOURCE = "KTLOxuOmu.m/src/omu_Table";
constexpr const char* GAP = "  ";

std::string CellText(const omu_Primitive* cell)
{
    if (cell == nullptr)
        return {};
    cow_String held;
    if (!omu_ItemReader::Read(*cell, held))
        held = cell->AsRepr();
    std::string text(held.View());
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

// In code points; text that is no UTF-8 counts by bytes.
std::size_t WidthOf(const std::string& text)
{
    const int count = omu_Utf8::CountCodePoints(text);
    return count >= 0 ? static_cast<std::size_t>(count) : text.size();
}

void AppendLine(std::string& out, const std::string* cells, const std::vector<std::size_t>& widths)
{
    std::string line;
    for (std::size_t column = 0; column < widths.size(); ++column)
    {
        line += cells[column];
        line.append(widths[column] - WidthOf(cells[column]), ' ');
        line += GAP;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out += line;
    out += '\n';
}
}

int omu_Table::AddRow()
{
    for (int column = 0; column < Columns(); ++column)
        m_Cells.Append(nullptr);
    return m_Rows++;
}

void omu_Table::Put(int row, int column, omu_Primitive* owned)
{
    std::unique_ptr<omu_Primitive> guard(owned);
    const int place = PlaceOf(row, column);
    m_Cells.Set(place, guard.release());
}

void omu_Table::Put(int row, int column, const cow_String& text)
{
    Put(row, column, omu_PrimString(text));
}

const omu_Primitive* omu_Table::Get(int row, int column) const
{
    return m_Cells.Get(PlaceOf(row, column));
}

cow_String omu_Table::AsString() const
{
    const auto columns = static_cast<std::size_t>(Columns());
    std::vector<std::string> texts;
    for (const cow_String& name : m_ColumnNames)
        texts.emplace_back(name.View());
    const bool named =
        std::any_of(texts.begin(), texts.end(), [](const auto& name) { return !name.empty(); });
    for (int place = 0; place < m_Cells.Length(); ++place)
        texts.push_back(CellText(m_Cells.Get(place)));
    std::vector<std::size_t> widths(columns, 0);
    for (std::size_t i = 0; i < texts.size(); ++i)
        widths[i % columns] = std::max(widths[i % columns], WidthOf(texts[i]));
    std::string out;
    if (named)
        AppendLine(out, texts.data(), widths);
    for (std::size_t row = 1; row <= static_cast<std::size_t>(m_Rows); ++row)
        AppendLine(out, texts.data() + row * columns, widths);
    return cow_String(out);
}

int omu_Table::PlaceOf(int row, int column) const
{
    if (row < 0 || row >= m_Rows)
        nex_RaiseRange(row, m_Rows, SOURCE, __LINE__);
    if (column < 0 || column >= Columns())
        nex_RaiseRange(column, Columns(), SOURCE, __LINE__);
    return row * Columns() + column;
}
