// The link scanners over 1 MB of notes: as the store meets it (many notes of
// a few hundred characters, each with its subject), and as one long text in
// which nothing is found, so that every scanner reads to the end.
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "links/scanners.h"
#include "links/task_links.h"
#include "platform/ansi_codepage.h"

namespace {

constexpr size_t kTextSize = 1 << 20;

// Fragments of real-looking notes; the ones that hold nothing to find are the
// ones every scanner must look at and turn down.
const wchar_t* const kMixedFragments[] = {
    L"Bring the signed contract and two copies of the offer. ",
    L"Call Anna on +49 30 1234567 about the delivery. ",
    L"Office (0123) 456789, ask for the accounts department. ",
    L"Mail the minutes to john.doe@example.com before Friday. ",
    L"Details at https://intranet.example.com/projects/42 (see the plan). ",
    L"Check www.example.org/status for the outage. ",
    L"Meeting on 15.01.2008 10:30 in room 4711. ",
    L"Server 192.168.100.200 needs a reboot; part no. AB-1234-5678. ",
    L"Remember to water the plants and feed the cat while we are away. ",
    L"Order #2024001# arrived damaged; ask @ the desk. ",
    L"The quick brown fox jumps over the lazy dog, again and again. ",
};

const wchar_t* const kNothingFragments[] = {
    L"Meeting on 15.01.2008 10:30 in room 4711. ",
    L"Server 192.168.100.200 needs a reboot; part no. AB-1234-5678. ",
    L"Order #2024001# arrived damaged; ask @ the desk. ",
    L"Remember to water the plants and feed the cat while we are away. ",
    L"The ticket id=123456789 went to svn://repo for nobody@home today. ",
    L"Total 12 345 units, 3.5 kg, at 10:12.30 45 678 on the clock. ",
};

template <size_t N>
std::wstring MakeText(const wchar_t* const (&fragments)[N], unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_int_distribution<size_t> pick(0, N - 1);
  std::wstring text;
  while (text.size() < kTextSize) text += fragments[pick(random)];
  text.resize(kTextSize);
  return text;
}

// 1 MB cut into notes of 200 to 600 characters, as stored (Windows-1252).
std::vector<std::string> MakeNotes() {
  const std::string text = velmo::ToWindows1252(MakeText(kMixedFragments, 7));
  std::mt19937 random(11);
  std::uniform_int_distribution<size_t> length(200, 600);
  std::vector<std::string> notes;
  for (size_t at = 0; at < text.size();) {
    const size_t n = length(random);
    notes.push_back(text.substr(at, n));
    at += n;
  }
  return notes;
}

void BM_FillTaskLinks_1MB_Of_Notes(benchmark::State& state) {
  const std::vector<std::string> notes = MakeNotes();
  velmo::Task task;
  task.subject = L"Follow up with the supplier";
  for (auto _ : state) {
    for (const std::string& n : notes) {
      velmo::FillTaskLinks(task, n.c_str());
      benchmark::DoNotOptimize(task.phone_number.data());
    }
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * kTextSize));
  state.counters["notes"] = static_cast<double>(notes.size());
}
BENCHMARK(BM_FillTaskLinks_1MB_Of_Notes)->Unit(benchmark::kMillisecond);

// Over wide text (what the program's own texts are) and over the stored bytes
// of notes.
template <typename Char>
void BM_ThreeScanners_1MB_Nothing_Found(benchmark::State& state) {
  const std::wstring wide = MakeText(kNothingFragments, 13);
  std::basic_string<Char> text;
  if constexpr (std::is_same_v<Char, char>)
    text = velmo::ToWindows1252(wide);
  else
    text = wide;
  if (!velmo::FindPhoneNumber(text.c_str()).empty() || velmo::FindEmail(text.c_str(), nullptr) ||
      velmo::FindWebAddress(text.c_str(), nullptr)) {
    state.SkipWithError("the text meant to hold nothing holds a link");
    return;
  }
  for (auto _ : state) {
    benchmark::DoNotOptimize(velmo::FindPhoneNumber(text.c_str()));
    benchmark::DoNotOptimize(velmo::FindEmail(text.c_str(), nullptr));
    benchmark::DoNotOptimize(velmo::FindWebAddress(text.c_str(), nullptr));
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * kTextSize));
}
BENCHMARK(BM_ThreeScanners_1MB_Nothing_Found<wchar_t>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ThreeScanners_1MB_Nothing_Found<char>)->Unit(benchmark::kMillisecond);

}  // namespace
