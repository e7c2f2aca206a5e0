#pragma once

namespace pellmark {

class Form;

/// Gives the labels and buttons of a form their access keys: in each caption the first letter or digit that
/// none before it has taken, in the order of the tab key. Translated captions get theirs like English ones.
/// The default and the cancel button have Enter and Escape and get none; a caption without a free letter gets
/// none. Call it once the captions are set, which then show every "&" that they hold.
void assignAccessKeys(Form& form);

}  // namespace pellmark
