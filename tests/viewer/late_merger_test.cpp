#include "runtime/runtime_error.h"
#include "viewer/document/combined_form.h"
#include "viewer/document/letter_set.h"
#include "viewer/viewer_world.h"

#include <doctest/doctest.h>

#include <chrono>
#include <filesystem>
#include <thread>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("a combined form that its merger is still writing is waited for")
{
    const TempFolder folder;
    (void)writePrintJob(folder, "委任状23.wfd", {ordinaryRow(), ordinaryRow()});
    const std::string form = folder / "委任状23.wfd", csv = folder / "委任状.csv";
    const std::string merged = folder / "merged.wfd", script = folder / "s.dat";
    writeBytes(script, "FileName,\"" + merged + "\"\r\nShowWindow\r\n");
    std::thread merger([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(250));
        writeBytes(merged + ".part", combinedFormText({{form, {{"委任状", csv, true}}}}));
        std::filesystem::rename(merged + ".part", merged);
    });
    std::size_t letters = 0;
    std::string fault;
    try {
        letters = openScript(script).size();
    } catch (const RuntimeError &error) {
        fault = error.description();
    }
    merger.join();
    CHECK(fault == "");
    CHECK(letters == 2);
}
