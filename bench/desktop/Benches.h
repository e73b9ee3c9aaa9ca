#pragma once

#include "bench/desktop/BenchDesktop.h"
#include "bench/desktop/BenchTable.h"

// Each measures the program beside its floor on one desktop, in turns, and adds its rows.
void benchStart(BenchDesktop& bench, BenchTable& table);
void benchOverlay(BenchDesktop& bench, BenchTable& table);
void benchDrag(BenchDesktop& bench, BenchTable& table);
void benchChrome(BenchDesktop& bench, BenchTable& table);
void benchWindows(BenchDesktop& bench, BenchTable& table);
void benchHover(BenchDesktop& bench, BenchTable& table);
void benchCapture(BenchDesktop& bench, BenchTable& table);
void benchPng(BenchDesktop& bench, BenchTable& table);
void benchLanguages(BenchDesktop& bench, BenchTable& table);
void benchJournal(BenchDesktop& bench, BenchTable& table);
void benchPins(BenchDesktop& bench, BenchTable& table);
void benchRest(BenchDesktop& bench, BenchTable& table);
