// Turns a schema file into the source of its tables:
//
//     generate-tables SCHEMA.json TABLES.cpp

#include "Schema/Definition.h"
#include "Schema/SchemaError.h"

#include <fmt/format.h>
#include <fmt/ostream.h>

#include <fstream>
#include <iostream>
#include <string>

namespace {

using namespace Vantry::Schema;

std::string quoted(char const * text)
{
    std::string result = "\"";
    for (; *text != 0; ++text)
    {
        if (*text == '"' || *text == '\\')
            result += '\\';
        result += *text;
    }
    return result + '"';
}

template <class Bytes>
std::string list(Bytes const & bytes)
{
    std::string result;
    for (unsigned char byte : bytes)
        result += fmt::format("{}{}", result.empty() ? "" : ", ", +byte);
    return result;
}

std::string labelOf(LabelBytes const & label)
{
    return "{{" + list(label.bytes) + "}}";
}

void writeArrays(std::ostream & out, Tables const & tables)
{
    std::size_t i = 0;
    for (ElementRow const & element : tables.elements)
    {
        if (element.references.count != 0)
        {
            fmt::print(out, "LabelBytes const REFERENCES_{}[] = {{", i);
            for (LabelBytes const & key : element.references)
                fmt::print(out, "{}, ", labelOf(key));
            fmt::print(out, "}};\n");
        }
        if (element.distinguished.count != 0)
            fmt::print(out, "unsigned char const DISTINGUISHED_{}[] = {{{}}};\n", i, list(element.distinguished));
        ++i;
    }

    i = 0;
    for (SetRow const & set : tables.sets)
    {
        fmt::print(out, "AttributeRow const ATTRIBUTES_{}[] = {{\n", i++);
        for (AttributeRow const & row : set.attributes)
            fmt::print(out, "    {{{}, static_cast<Status>({}), {}}},\n", row.element, static_cast<int>(row.status),
                       quoted(row.semantics));
        fmt::print(out, "}};\n");
    }
}

std::string rowOf(char const * name, std::size_t index, std::size_t count)
{
    return count == 0 ? "{}" : fmt::format("{{{}_{}, {}}}", name, index, count);
}

void writeTables(std::ostream & out, Tables const & tables)
{
    std::size_t i = 0;
    fmt::print(out, "\nElementRow const ELEMENTS[] = {{\n");
    for (ElementRow const & row : tables.elements)
    {
        fmt::print(
            out,
            "    {{{}, {}, {}, static_cast<Identifier>({}), static_cast<Identifier>({}), {}u, {}u, {}, {}, {}}},\n",
            quoted(row.symbol), quoted(row.name), labelOf(row.label), static_cast<int>(row.type),
            static_cast<int>(row.subType), row.minimum, row.maximum, row.tag,
            rowOf("DISTINGUISHED", i, row.distinguished.count), rowOf("REFERENCES", i, row.references.count));
        ++i;
    }

    i = 0;
    fmt::print(out, "}};\n\nSetRow const SETS[] = {{\n");
    for (SetRow const & row : tables.sets)
    {
        fmt::print(out, "    {{{}, {}, {}, {}}},\n", quoted(row.symbol), quoted(row.name), labelOf(row.key),
                   rowOf("ATTRIBUTES", i, row.attributes.count));
        ++i;
    }

    fmt::print(out, "}};\n\nNameRow const LABELS[] = {{\n");
    for (NameRow const & row : tables.labels)
        fmt::print(out, "    {{{}, {}}},\n", labelOf(row.label), quoted(row.name));
    fmt::print(out, "}};\n");
}

void write(std::ostream & out, Tables const & tables)
{
    out << "#include \"Schema/Tables.h\"\n\n"
           "namespace Vantry { namespace Schema {\n\n"
           "namespace {\n\n"
           "using Types::Identifiers::Identifier;\n"
           "using Status = MetaMetadata::AttributeRequiredStatus::Status;\n\n";
    writeArrays(out, tables);
    writeTables(out, tables);
    fmt::print(out,
               "\nTables const TABLES = {{{{ELEMENTS, {}}}, {{SETS, {}}}, {{LABELS, {}}}}};\n\n}}\n\n"
               "Tables const & builtInTables()\n{{\n    return TABLES;\n}}\n\n}}}}\n",
               tables.elements.count, tables.sets.count, tables.labels.count);
}

}

int main(int argc, char ** argv)
try
{
    if (argc != 3)
    {
        std::cerr << "usage: generate-tables SCHEMA.json TABLES.cpp\n";
        return 2;
    }

    Definition definition;
    definition.addFile(argv[1]);
    std::ofstream out(argv[2]);
    write(out, definition.tables());
    out.close();
    if (!out)
    {
        std::cerr << argv[2] << ": can't be written\n";
        return 1;
    }
    return 0;
}
catch (std::exception const & error)
{
    std::cerr << error.what() << '\n';
    return 1;
}
