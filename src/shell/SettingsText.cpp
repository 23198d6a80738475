#include "shell/SettingsText.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace morvane {
namespace {

constexpr std::string_view Explanation =
    "# The settings of Morvane. A line that begins with # is a comment.\n"
    "# Below the name of a section, in brackets, stands one value a line: Name = value.\n"
    "# Blanks around a value do not count. In double quotes they do, and there \\n is a line "
    "break,\n"
    "# \\r a carriage return, \\t a tab, \\\" a quote, \\\\ a backslash and \\x1b the byte with "
    "that\n"
    "# hexadecimal number. A line that Morvane does not understand stays as it is.\n";

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF"; // some editors begin a file with it
constexpr std::string_view HexDigits = "0123456789abcdef";

// Letters behind a backslash, and the characters that they stand for.
constexpr std::pair<char, char> Escapes[] = {
    {'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'"', '"'}, {'\\', '\\'}};

char LowerCase(char Character)
{
    return Character >= 'A' && Character <= 'Z' ? static_cast<char>(Character + ('a' - 'A'))
                                                : Character;
}

bool IsControl(char Character)
{
    const auto byte = static_cast<unsigned char>(Character);
    return byte < 0x20 || byte == 0x7F;
}

std::string_view Trim(std::string_view Text)
{
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = Text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return Text.substr(first, Text.find_last_not_of(blanks) - first + 1);
}

// The character of an escape, which is taken off the front of Text; a backslash that begins none
// stands for itself.
char TakeEscape(std::string_view& Text)
{
    if (Text.size() >= 2)
        for (const auto& [letter, character] : Escapes)
            if (Text[1] == letter) {
                Text.remove_prefix(2);
                return character;
            }
    if (Text.size() >= 4 && Text[1] == 'x') {
        const std::size_t high = HexDigits.find(LowerCase(Text[2]));
        const std::size_t low = HexDigits.find(LowerCase(Text[3]));
        if (high != std::string_view::npos && low != std::string_view::npos) {
            Text.remove_prefix(4);
            return static_cast<char>(high * 16 + low);
        }
    }
    Text.remove_prefix(1);
    return '\\';
}

// A text that is not quoted as a whole counts as it stands: a hand-typed "Big" mirror.
std::string DecodeValue(std::string_view Text)
{
    std::string value;
    std::string_view rest = Text.substr(Text.starts_with('"') ? 1 : Text.size());
    while (!rest.empty() && rest.front() != '"')
        if (rest.front() == '\\') {
            value += TakeEscape(rest);
        } else {
            value += rest.front();
            rest.remove_prefix(1);
        }
    return rest == "\"" ? value : std::string(Text);
}

std::string EncodeValue(std::string_view Value)
{
    const bool isPlain = Trim(Value).size() == Value.size() && !Value.starts_with('"')
        && std::none_of(Value.begin(), Value.end(), IsControl);
    if (isPlain)
        return std::string(Value);
    std::string text = "\"";
    for (const char character : Value) {
        const auto* const escape = std::find_if(std::begin(Escapes), std::end(Escapes),
            [&](const auto& known) { return known.second == character; });
        if (escape != std::end(Escapes)) {
            text += {'\\', escape->first};
        } else if (IsControl(character)) {
            const auto byte = static_cast<unsigned char>(character);
            text += {'\\', 'x', HexDigits[byte / 16], HexDigits[byte % 16]};
        } else {
            text += character;
        }
    }
    return text + '"';
}

enum class LineKind { Other, Section, Value };

// Goes through a text line by line.
class LineWalker {
public:
    explicit LineWalker(std::string_view Text) : m_text(Text) { }

    LineKind Kind = LineKind::Other;
    // Of a section or a value. A section whose name cannot be read has none: what stands below it
    // must not count for the section before.
    std::string_view Name;
    std::string_view Value; // as it stands in the file
    std::size_t Begin = 0, End = 0; // of the line with its end

    bool Next()
    {
        Begin = End;
        if (Begin == m_text.size())
            return false;
        End = std::min(m_text.find('\n', Begin), m_text.size() - 1) + 1;
        std::string_view line = m_text.substr(Begin, End - Begin);
        line.remove_suffix(line.ends_with('\n') ? 1 : 0);
        if (Begin == 0 && line.starts_with(ByteOrderMark))
            line.remove_prefix(ByteOrderMark.size());
        Parse(Trim(line));
        return true;
    }

private:
    void Parse(std::string_view Line)
    {
        Kind = LineKind::Other;
        Name = Value = {};
        const std::size_t equals = Line.find('=');
        if (Line.starts_with('[')) {
            Kind = LineKind::Section;
            const std::size_t bracket = Line.find(']');
            if (bracket != std::string_view::npos)
                Name = Trim(Line.substr(1, bracket - 1));
        } else if (!Line.starts_with('#') && equals != std::string_view::npos) {
            Name = Trim(Line.substr(0, equals));
            Value = Trim(Line.substr(equals + 1));
            Kind = Name.empty() ? LineKind::Other : LineKind::Value;
        }
    }

    std::string_view m_text;
};

// A piece of the text and what takes its place.
struct Edit {
    std::size_t Begin, End;
    std::string Text;
};

struct SectionChanges {
    struct ValueChange {
        const SettingChange* Change;
        bool IsFound = false;
        std::size_t Begin = 0, End = 0; // of the line where it counts
    };
    ByName<ValueChange> Values;
    std::vector<const SettingChange*> InOrder;
    bool IsFound = false;
    std::size_t End = 0; // of its last line that is no comment
};

// Finds the lines that the changes concern. Every line of a deleted value goes, so that no earlier
// one comes to count.
void LocateChanges(
    std::string_view Text, ByName<SectionChanges>& Sections, std::vector<Edit>& Edits)
{
    SectionChanges* current = nullptr;
    for (LineWalker line(Text); line.Next();) {
        if (line.Kind == LineKind::Section) {
            const auto section = Sections.find(line.Name);
            current = section == Sections.end() ? nullptr : &section->second;
        }
        if (current == nullptr || line.Kind == LineKind::Other)
            continue;
        current->IsFound = true;
        current->End = line.End;
        if (line.Kind == LineKind::Section)
            continue;
        const auto found = current->Values.find(line.Name);
        if (found == current->Values.end())
            continue;
        SectionChanges::ValueChange& value = found->second;
        if (!value.Change->Value)
            Edits.push_back({line.Begin, line.End, {}});
        value.IsFound = true;
        value.Begin = line.Begin;
        value.End = line.End;
    }
}

// As the first line of the text has it.
std::string_view LineEndOf(std::string_view Text)
{
    return Text.substr(0, Text.find('\n')).ends_with('\r') ? "\r\n" : "\n";
}

std::string LineOf(const SettingChange& Change, std::string_view LineEnd)
{
    std::string line = Change.Name + " =";
    if (!Change.Value->empty())
        line += ' ' + EncodeValue(*Change.Value);
    return line.append(LineEnd);
}

std::string Apply(std::string_view Text, std::vector<Edit>& Edits)
{
    std::sort(Edits.begin(), Edits.end(), [](const Edit& Left, const Edit& Right) {
        return std::pair(Left.Begin, Left.End) < std::pair(Right.Begin, Right.End);
    });
    std::string result;
    std::size_t copied = 0;
    for (const Edit& edit : Edits) {
        result.append(Text.substr(copied, edit.Begin - copied)).append(edit.Text);
        copied = edit.End;
    }
    return result.append(Text.substr(copied));
}

} // namespace

bool LessIgnoringCase::operator()(std::string_view Left, std::string_view Right) const
{
    return std::lexicographical_compare(Left.begin(), Left.end(), Right.begin(), Right.end(),
        [](char l, char r) { return LowerCase(l) < LowerCase(r); });
}

bool IsSameIgnoringCase(std::string_view Left, std::string_view Right)
{
    return std::equal(Left.begin(), Left.end(), Right.begin(), Right.end(),
        [](char l, char r) { return LowerCase(l) == LowerCase(r); });
}

const std::string* FindSetting(
    const SettingsValues& In, std::string_view Section, std::string_view Name)
{
    const auto section = In.find(Section);
    if (section == In.end())
        return nullptr;
    const auto value = section->second.find(Name);
    return value == section->second.end() ? nullptr : &value->second;
}

SettingsValues ReadSettingsText(std::string_view Text)
{
    SettingsValues values;
    ByName<std::string>* section = nullptr;
    for (LineWalker line(Text); line.Next();)
        if (line.Kind == LineKind::Section)
            section = line.Name.empty() ? nullptr : &values[std::string(line.Name)];
        else if (line.Kind == LineKind::Value && section != nullptr)
            (*section)[std::string(line.Name)] = DecodeValue(line.Value);
    return values;
}

std::string ChangeSettingsText(std::string_view Text, std::span<const SettingChange> Changes)
{
    std::string text(Text.empty() ? Explanation : Text);
    const std::string_view lineEnd = LineEndOf(text);
    if (!text.ends_with('\n'))
        text += text.ends_with('\r') ? "\n" : lineEnd;

    ByName<SectionChanges> sections;
    std::vector<std::string_view> sectionOrder;
    for (const SettingChange& change : Changes) {
        SectionChanges& section = sections[change.Section];
        if (section.InOrder.empty())
            sectionOrder.push_back(change.Section);
        section.InOrder.push_back(&change);
        section.Values[change.Name].Change = &change;
    }
    std::vector<Edit> edits;
    LocateChanges(text, sections, edits);

    std::string newSections;
    for (const std::string_view name : sectionOrder) {
        const SectionChanges& section = sections.find(name)->second;
        std::string added;
        for (const SettingChange* change : section.InOrder) {
            const SectionChanges::ValueChange& value = section.Values.find(change->Name)->second;
            if (!change->Value)
                continue;
            if (value.IsFound)
                edits.push_back({value.Begin, value.End, LineOf(*change, lineEnd)});
            else
                added += LineOf(*change, lineEnd);
        }
        if (section.IsFound)
            edits.push_back({section.End, section.End, added});
        else if (!added.empty())
            newSections.append(lineEnd).append("[").append(name).append("]").append(lineEnd) +=
                added;
    }
    return Apply(text, edits) + newSections;
}

} // namespace morvane
