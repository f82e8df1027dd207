#include "korvelfile/alignments/internal/SectionState.h"

namespace File::detail {

SectionState::Class SectionState::Look(const SectionHandler& sections, const SectionRecord& point,
                                       End& end) {
  try {
    const auto [section, record] = sections.Find(point);
    end = {&section.LeftOf(record), &section.RightOf(record)};
    if (!record.isBreak) return kBetweenBreaks;
    if (Coincide(record, *end.right)) return kRightmost;
    return Coincide(record, *end.left) ? kLeftmost : kAlone;
  } catch (const SectionHandler::NotInSectionMap&) {
    return kAlone;
  }
}

void SectionState::Update(const SectionHandler& sections, const SectionRecord& a,
                          const SectionRecord& b) {
  constexpr bool kOwnHeight[4][4] = {{true, true, true, true},
                                     {true, false, false, false},
                                     {true, false, true, false},
                                     {true, false, false, true}};
  const Class classA = Look(sections, a, a_);
  const Class classB = Look(sections, b, b_);
  ownHeight_ = kOwnHeight[classA][classB];
}

}  // namespace File::detail
