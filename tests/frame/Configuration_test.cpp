#include <doctest/doctest.h>

#include "frame/Configuration.h"
#include "values/Errors.h"

#include <filesystem>
#include <fstream>

#include <unistd.h>

using namespace rovanta;

namespace {

/// A folder with a config.txt in it, which goes with the object.
struct ConfigFolder {
    ConfigFolder()
    {
        path = std::filesystem::temp_directory_path() / ("config-" + std::to_string(getpid()));
        std::filesystem::create_directory(path);
    }
    ~ConfigFolder() { std::filesystem::remove_all(path); }
    ConfigFolder(const ConfigFolder&) = delete;
    ConfigFolder& operator=(const ConfigFolder&) = delete;

    std::string File() const { return (path / "config.txt").string(); }
    Configuration Read(const std::string& content) const
    {
        std::ofstream(File(), std::ios::binary) << content;
        return ReadConfigFile(File());
    }

    std::filesystem::path path;
};

/// Thirteen records behind a heading, with the line end of one system.
std::string Sample(const std::string& connection, const std::string& end = "\r\n")
{
    std::string text = "\"The office\"" + end + "\"Connection\",\"" + connection + "\"" + end;
    for (const char* record : {"Pictures,/srv/pictures/", "Leases,leases/", "Documents,\"doc, uments/\"",
                               "Owner,Owner - ", "Driver,\"Driver \"", "Truck,4000", "Trailer,4100", "Engine,4200",
                               "Driver expense,5000", "Linen,5100", "Wash,5200", "Additional driver,5300"})
        text += record + end;
    return text;
}

}

TEST_CASE("The values stand by their order alone, labels may say anything")
{
    const ConfigFolder folder;
    for (const char* end : {"\r\n", "\n", "\r"}) {
        const Configuration read = folder.Read(Sample("Server=db;Database=office, one", end));
        CHECK(read.ConnectionString == "Server=db;Database=office, one");
        CHECK(read.BusImagePath == "/srv/pictures/");
        CHECK(read.LeaseTemplatePath == (folder.path / "leases/").string());
        CHECK(read.DocumentPath == (folder.path / "doc, uments/").string());
        CHECK(read.OwnerAccountPrefix == "Owner -");
        CHECK(read.DriverAccountPrefix == "Driver ");
        CHECK(read.TruckIncomeAccount == "4000");
        CHECK(read.TrailerIncomeAccount == "4100");
        CHECK(read.EngineServiceAccount == "4200");
        CHECK(read.DriverExpenseAccount == "5000");
        CHECK(read.LinenExpenseAccount == "5100");
        CHECK(read.BusWashExpenseAccount == "5200");
        CHECK(read.AddDriverExpenseAccount == "5300");
    }
}

TEST_CASE("All fields may stand on one line, and the last one needs no line end")
{
    const ConfigFolder folder;
    const Configuration read =
        folder.Read("Heading,a, \"server=x\" ,b,/p/,c,/l/,d,/d/,e,1,f,2,g,3,h,4,i,5,j,6,k,7,l,8,m,9");
    CHECK(read.ConnectionString == "server=x");
    CHECK(read.BusImagePath == "/p/");
    CHECK(read.AddDriverExpenseAccount == "9");
}

TEST_CASE("A path to the embedded file counts from the folder of the configuration, a server's text stands")
{
    const ConfigFolder folder;
    CHECK(folder.Read(Sample("sqlite:office.db")).ConnectionString == "sqlite:" + (folder.path / "office.db").string());
    CHECK(folder.Read(Sample("data/office.db")).ConnectionString == (folder.path / "data/office.db").string());
    CHECK(folder.Read(Sample("sqlite:/srv/office.db")).ConnectionString == "sqlite:/srv/office.db");
    CHECK(folder.Read(Sample("postgresql://db/office")).ConnectionString == "postgresql://db/office");
}

TEST_CASE("An empty folder stays empty")
{
    const ConfigFolder folder;
    CHECK(folder.Read("H\nc,server=x\np,\"\"\nl,\nd,/d/\no,1\nd,2\nt,3\nt,4\ne,5\nd,6\nl,7\nw,8\na,9\n").BusImagePath ==
          "");
}

TEST_CASE("A missing file and one with too few records are told by name")
{
    const ConfigFolder folder;
    CHECK_THROWS_WITH_AS(ReadConfigFile(folder.File()), ("File not found: " + folder.File()).c_str(), RunTimeError);
    CHECK_THROWS_AS(ReadConfigFile(folder.path.string()), RunTimeError);
    const std::string whole = Sample("server=x", "\n");
    for (const std::string& content :
         {std::string(), std::string("Heading"), whole.substr(0, whole.rfind(',')),
          whole.substr(0, whole.rfind("Wash")),
          std::string("H,c,\"open,p,/p/,l,/l/,d,/d/,e,1,f,2,g,3,h,4,i,5,j,6,k,7,l,8,m,9")}) {
        CAPTURE(content);
        CHECK_THROWS_WITH_AS(folder.Read(content), ("Input past end of file: " + folder.File()).c_str(), RunTimeError);
    }
}
