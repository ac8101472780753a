// A long job tells how far it is; a reporter of the thread shows it, and may stop the job.
#include <iostream>
#include <wip_Progress.h>
#include <wip_ProgressObj.h>
#include <wip_WIP.h>
#include <wip_WipReporter.h>

class Console : public wip_WipReporter
{
public:
    Console() { wip_WIP::Instance().SetWipReporter(this); }
    ~Console() override { wip_WIP::Instance().RemoveWipReporter(this); }

    void Milestone(const atr_String& text) override { std::cout << text.AsCharPtr() << '\n'; }
    void Milestone(const atr_String& text, int percent) override
    {
        std::cout << percent << " % " << text.AsCharPtr() << '\n';
    }
    void Milestone(const atr_String&, const atr_String&, int, int) override {}
    void Display(const atr_String&) override {}
    void Print(const atr_String&) override {}
    void Landmark(const atr_String&) override {}
    void Verbose(const atr_String&) override {}
    void Warning(const atr_String&) override {}
    void Error(const atr_String&, wip_errorLevelEnm) override {}
    bool Interrupted() override { return false; }
    void InterruptedThrow() override {}
    void CommandDone() override {}
};

int main()
{
    const Console console;
    wip_ProgressObj job("meshing"); // begins the job; its destructor ends it
    for (const char* part : {"rib", "plate"})
    {
        if (!job.Push(0.5f, part)) // a slice of half the job, from where the job is now
            return 1;
        for (int i = 1; i <= 2; ++i)
            if (!wip_Progress::Instance().Update(i, 2))
                return 1;
        if (!job.Pop(1)) // the slice is done
            return 1;
    }
}
