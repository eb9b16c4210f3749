#include "frame/Configuration.h"

#include "store/ConnectionText.h"
#include "values/Errors.h"
#include "values/Text.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace rovanta {

namespace {

/// Comma-and-quote field reading over the whole text of a file.
class FieldReader {
public:
    FieldReader(std::string text, std::string path) : text(std::move(text)), path(std::move(path)) {}

    std::string Next()
    {
        SkipBlanks();
        if (at >= text.size())
            throw RunTimeError("Input past end of file: " + path);
        return text[at] == '"' ? Quoted() : Plain();
    }

private:
    std::string Quoted()
    {
        const std::size_t end = std::min(text.find('"', at + 1), text.size());
        std::string field = text.substr(at + 1, end - at - 1);
        at = std::min(end + 1, text.size());
        SkipBlanks();
        SkipMark();
        return field;
    }

    std::string Plain()
    {
        const std::size_t end = std::min(text.find_first_of(",\r\n", at), text.size());
        std::string field = Trim(std::string_view(text).substr(at, end - at));
        at = end;
        SkipMark();
        return field;
    }

    void SkipBlanks()
    {
        while (at < text.size() && (text[at] == ' ' || text[at] == '\t'))
            ++at;
    }

    /// One comma or one line end behind a field.
    void SkipMark()
    {
        if (text.compare(at, 2, "\r\n") == 0)
            at += 2;
        else if (at < text.size() && (text[at] == ',' || text[at] == '\n' || text[at] == '\r'))
            ++at;
    }

    std::string text;
    std::string path;
    std::size_t at = 0;
};

std::string FolderFrom(const std::filesystem::path& home, const std::string& folder)
{
    if (folder.empty() || std::filesystem::path(folder).is_absolute())
        return folder;
    return (home / folder).lexically_normal().string();
}

/// A server's text stands as it is; a path to the embedded file counts from the folder of the configuration.
std::string ConnectionFrom(const std::filesystem::path& home, const std::string& text)
{
    constexpr std::string_view sqlite = "sqlite:";
    if (text.starts_with(sqlite))
        return std::string(sqlite) + FolderFrom(home, text.substr(sqlite.size()));
    return NamesFile(text) ? FolderFrom(home, text) : text;
}

}

Configuration ReadConfigFile(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    if (!stream || std::filesystem::is_directory(path))
        throw RunTimeError("File not found: " + path);
    std::ostringstream content;
    content << stream.rdbuf();
    FieldReader reader(content.str(), path);

    Configuration configuration;
    const std::array values = {&configuration.ConnectionString,       &configuration.BusImagePath,
                               &configuration.LeaseTemplatePath,      &configuration.DocumentPath,
                               &configuration.OwnerAccountPrefix,     &configuration.DriverAccountPrefix,
                               &configuration.TruckIncomeAccount,     &configuration.TrailerIncomeAccount,
                               &configuration.EngineServiceAccount,   &configuration.DriverExpenseAccount,
                               &configuration.LinenExpenseAccount,    &configuration.BusWashExpenseAccount,
                               &configuration.AddDriverExpenseAccount};
    reader.Next();
    for (std::string* value : values) {
        reader.Next();
        *value = reader.Next();
    }

    const auto home = std::filesystem::absolute(path).parent_path();
    configuration.ConnectionString = ConnectionFrom(home, configuration.ConnectionString);
    for (std::string* folder :
         {&configuration.BusImagePath, &configuration.LeaseTemplatePath, &configuration.DocumentPath})
        *folder = FolderFrom(home, *folder);
    return configuration;
}

}
