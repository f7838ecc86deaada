#pragma once

// The display scale: the twips layout and the fonts of every window grow together, from 100 %
// (15 twips to a pixel, the platform's fonts) to 200 %. The preference is the user's, kept in
// their configuration folder (quorvel/display.conf) apart from the settings file, whose format
// is fixed; it takes effect at the next start.
constexpr int kSmallestScale = 100;
constexpr int kLargestScale = 200;
constexpr int kScaleStep = 25;

// A screen's scale from its logical dots per inch against the usual 96, in steps of 25 %.
int ScaleForDpi(double logicalDpi);
// The primary screen's scale. Where the toolkit already scales a high-density screen by its
// device pixel ratio, the logical dots per inch stay near 96 and this is 100 %.
int ScreenDisplayScale();

// The stored preference, or the screen's scale when none is stored.
int PreferredDisplayScale();
void StoreDisplayScale(int percent);

// Sets the scale of this run: twips to pixels and the application's font. Runs before the
// first window is built.
void ApplyDisplayScale(int percent);
