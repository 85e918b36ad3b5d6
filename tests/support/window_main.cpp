#include "base/windows_api.h"
#include "support/box_script.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

// A crash must not look like success, and must not wait for anybody in a box.
LONG WINAPI OnCrash(EXCEPTION_POINTERS* pointers)
{
    std::printf("crashed: 0x%08lx\n[  FAILED  ]\n", pointers->ExceptionRecord->ExceptionCode);
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), 3);
    return EXCEPTION_EXECUTE_HANDLER;
}

} // namespace

int main(int count, char** arguments)
{
    SetUnhandledExceptionFilter(&OnCrash);
    InitCommonControls();
    voltaro::platformCalls.showMessageBox = &voltaro::FailOnBox;
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
