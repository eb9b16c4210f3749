#pragma once

#include <string>

namespace rovanta {

class StoryPlayer;
struct StoryStep;

/// A step in plain words, with the captions that a person sees; empty for a step that nobody need hear of.
/// It is asked before the step is played, while the controls it names are there.
std::string Tell(const StoryStep& step, StoryPlayer& player);

}
