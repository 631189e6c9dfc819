#pragma once
// The two tolerance comparisons used throughout the calculation.
namespace tormel {

// a and b agree within the ratio c (c below 1 is read as 1/c): the larger is
// at most the smaller times c, with special rules for zeros and negatives.
bool RelativelyEqual(double a, double b, double c);

// a and b (logarithms) differ by less than log10 of the ratio c.
bool LogEqual(double a, double b, double c);

}  // namespace tormel
