// The painter's order. What is sorted is (key, index) pairs of eight bytes; the records are moved once, at
// the end, each straight to its place.
#include "base/buffer.h"
#include "particles/simulation.h"

#include <bit>
#include <cstdint>
#include <emmintrin.h>
#include <utility>

namespace vantle {
namespace {

/// Grows as the depth falls, so that ascending keys run back to front; -0 and +0 give one key.
uint32_t KeyOfDepth(float depth) {
  const uint32_t bits = std::bit_cast<uint32_t>(depth + 0.0f);
  const uint32_t ascending = (bits >> 31) != 0 ? ~bits : bits | 0x80000000u;
  return ~ascending;
}

/// The key in the upper half, the index in the lower.
using Entry = uint64_t;

uint32_t KeyOf(Entry entry) {
  return static_cast<uint32_t>(entry >> 32);
}

/// Fills the entries; false when the records stand in order already.
bool MakeEntries(const ParticleList& list, Entry* entries) {
  bool ordered = true;
  uint32_t previous = 0;
  for (size_t i = 0; i < list.count; ++i) {
    const uint32_t key = KeyOfDepth(list.particles[i].depth);
    ordered &= previous <= key;
    previous = key;
    entries[i] = (Entry{key} << 32) | static_cast<uint32_t>(i);
  }
  return !ordered;
}

void InsertionSort(Entry* entries, size_t count) {
  for (size_t i = 1; i < count; ++i) {
    const Entry entry = entries[i];
    size_t at = i;
    for (; at > 0 && entries[at - 1] > entry; --at) entries[at] = entries[at - 1];
    entries[at] = entry;
  }
}

/// Stable radix sort from the lowest digit up; returns whichever of the two arrays holds the result. Digits
/// on which all keys agree are passed over.
template <uint32_t kBits>
Entry* RadixSort(Entry* entries, Entry* spare, size_t count) {
  constexpr uint32_t kPasses = (32 + kBits - 1) / kBits;
  constexpr uint32_t kDigits = 1u << kBits;
  uint32_t counts[kPasses][kDigits] = {};
  for (size_t i = 0; i < count; ++i) {
    const uint32_t key = KeyOf(entries[i]);
    for (uint32_t pass = 0; pass < kPasses; ++pass) ++counts[pass][(key >> (pass * kBits)) & (kDigits - 1)];
  }
  for (uint32_t pass = 0; pass < kPasses; ++pass) {
    uint32_t* starts = counts[pass];
    const auto digitOf = [pass](Entry entry) { return (KeyOf(entry) >> (pass * kBits)) & (kDigits - 1); };
    if (starts[digitOf(entries[0])] == count) continue;
    uint32_t next = 0;
    for (uint32_t digit = 0; digit < kDigits; ++digit) next += std::exchange(starts[digit], next);
    for (size_t i = 0; i < count; ++i) spare[starts[digitOf(entries[i])]++] = entries[i];
    std::swap(entries, spare);
  }
  return entries;
}

/// Moves every record to its place, cycle by cycle: place i takes the record that stands at sources[i].
/// Places that have been filled become their own sources. A scout runs ahead along the cycle and asks for the
/// records, whose places are as good as random; the list of sources is small enough to stay near. A second
/// list to copy to would save the chase, but its fresh pages cost more than that.
void MoveRecords(uint32_t* sources, size_t count, ProjectedParticle* records) {
  constexpr int32_t kAhead = 12;
  for (uint32_t i = 0; i < count; ++i) {
    if (sources[i] == i) continue;
    const ProjectedParticle first = records[i];
    uint32_t to = i, from = sources[i], scout = from;
    for (int32_t k = 0; k < kAhead && scout != i; ++k) {
      scout = sources[scout];
      _mm_prefetch(reinterpret_cast<const char*>(records + scout), _MM_HINT_T0);
    }
    while (from != i) {
      if (scout != i) {
        scout = sources[scout];
        _mm_prefetch(reinterpret_cast<const char*>(records + scout), _MM_HINT_T0);
      }
      records[to] = records[from];
      sources[to] = to;
      to = from;
      from = sources[to];
    }
    records[to] = first;
    sources[to] = to;
  }
}

/// The same from sorted entries; `sources` is scratch.
void MoveRecords(const Entry* entries, uint32_t* sources, size_t count, ProjectedParticle* records) {
  for (size_t i = 0; i < count; ++i) sources[i] = static_cast<uint32_t>(entries[i]);
  MoveRecords(sources, count, records);
}

}  // namespace

void SortBackToFront(ParticleList* list) {
  constexpr size_t kFew = 48, kMany = 4096;
  const size_t count = list->count;
  if (count < 2) return;
  if (count <= kFew) {
    Entry few[kFew];
    uint32_t sources[kFew];
    if (!MakeEntries(*list, few)) return;
    InsertionSort(few, count);
    return MoveRecords(few, sources, count, list->particles.data());
  }
  Buffer<Entry> entries(count);
  if (!MakeEntries(*list, entries.data())) return;
  Buffer<Entry> spare(count);
  Buffer<uint32_t> sources(count);
  Entry* sorted = count < kMany ? RadixSort<8>(entries.data(), spare.data(), count)
                                : RadixSort<11>(entries.data(), spare.data(), count);
  MoveRecords(sorted, sources.data(), count, list->particles.data());
}

}  // namespace vantle
