// What a device context costs on the software raster, beside the plainest line loop there is.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

#include "platform/device_context.h"
#include "platform/software_raster.h"

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr COLORREF kInk = 0x40c0ff;

struct Segment {
  CPoint from;
  CPoint to;
};

// Lines of one length in every direction, all inside the picture.
std::vector<Segment> segmentsOf(double length, std::size_t count) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> turn(0, 2 * M_PI);
  std::vector<Segment> segments;
  segments.reserve(count);
  while (segments.size() < count) {
    const CPoint from(static_cast<int>(random() % kWidth), static_cast<int>(random() % kHeight));
    const double angle = turn(random);
    const CPoint to(from.x + static_cast<int>(length * std::cos(angle)),
                    from.y + static_cast<int>(length * std::sin(angle)));
    if (CRect(0, 0, kWidth, kHeight).PtInRect(to)) segments.push_back({from, to});
  }
  return segments;
}

struct Screen {
  Screen() : pixels(qdr::PixelBuffer::create(kWidth, kHeight)), raster(pixels), dc(&raster) {}

  // Ten logical units per pixel with y upward, as a view of a drawing has it.
  void mapAsView() {
    dc.SetMapMode(MM_ISOTROPIC);
    dc.SetWindowExt(10 * kWidth, 10 * kHeight);
    dc.SetViewportOrg(0, kHeight);
    dc.SetViewportExt(kWidth, -kHeight);
  }

  std::shared_ptr<qdr::PixelBuffer> pixels;
  qdr::SoftwareRaster raster;
  CDC dc;
};

void countLines(benchmark::State& state, std::size_t perRound) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(perRound));
}

// The reference: integer Bresenham into a 32-bit buffer, no clipping, no pen, no mapping.
template <class Paint>
void plainLine(qdr::Pixel* base, int stride, CPoint from, CPoint to, Paint paint) {
  const int dx = std::abs(to.x - from.x);
  const int dy = std::abs(to.y - from.y);
  const int stepX = to.x < from.x ? -1 : 1;
  const int stepY = to.y < from.y ? -stride : stride;
  qdr::Pixel* at = base + static_cast<std::ptrdiff_t>(from.y) * stride + from.x;
  const int along = dx >= dy ? stepX : stepY;
  const int across = dx >= dy ? stepY : stepX;
  const int length = dx >= dy ? dx : dy;
  const int rise = dx >= dy ? dy : dx;
  int error = -length;
  for (int i = 0; i < length; ++i) {
    paint(*at);
    error += 2 * rise;
    if (error >= 0) {
      at += across;
      error -= 2 * length;
    }
    at += along;
  }
}

template <class Paint>
void drawPlainly(benchmark::State& state, Paint paint) {
  Screen screen;
  const std::vector<Segment> segments = segmentsOf(static_cast<double>(state.range(0)), 10000);
  for (auto _ : state) {
    for (const Segment& s : segments)
      plainLine(screen.pixels->row(0), kWidth, s.from, s.to, paint);
    benchmark::ClobberMemory();
  }
  countLines(state, segments.size());
}

void PlainBresenham(benchmark::State& state) {
  drawPlainly(state, [](qdr::Pixel& pixel) { pixel = qdr::pixelOf(kInk); });
}

void PlainBresenhamExclusiveOr(benchmark::State& state) {
  drawPlainly(state, [](qdr::Pixel& pixel) { pixel ^= kInk; });
}

void drawAll(benchmark::State& state, Screen& screen, const std::vector<Segment>& segments) {
  for (auto _ : state) {
    for (const Segment& s : segments) {
      screen.dc.MoveTo(s.from);
      screen.dc.LineTo(s.to);
    }
    benchmark::ClobberMemory();
  }
  countLines(state, segments.size());
}

void ThinLines(benchmark::State& state) {
  Screen screen;
  CPen pen(PS_SOLID, 0, kInk);
  screen.dc.SelectObject(&pen);
  drawAll(state, screen, segmentsOf(static_cast<double>(state.range(0)), 10000));
}

void ThinLinesExclusiveOr(benchmark::State& state) {
  Screen screen;
  CPen pen(PS_SOLID, 0, kInk);
  screen.dc.SelectObject(&pen);
  screen.dc.SetROP2(R2_XORPEN);
  drawAll(state, screen, segmentsOf(static_cast<double>(state.range(0)), 10000));
}

// As entities draw: a view's mapping, and a pen made, selected and dropped for each line.
void ThinLinesMappedNewPenEach(benchmark::State& state) {
  Screen screen;
  std::vector<Segment> segments = segmentsOf(20, static_cast<std::size_t>(state.range(0)));
  screen.mapAsView();
  for (Segment& s : segments) {
    screen.dc.DPtoLP(&s.from);
    screen.dc.DPtoLP(&s.to);
  }
  for (auto _ : state) {
    for (const Segment& s : segments) {
      const auto pen = std::make_unique<CPen>(PS_GEOMETRIC, 0, kInk);
      CPen* old = screen.dc.SelectObject(pen.get());
      screen.dc.MoveTo(s.from);
      screen.dc.LineTo(s.to);
      screen.dc.SelectObject(old);
    }
    benchmark::ClobberMemory();
  }
  countLines(state, segments.size());
}

void DashedLines(benchmark::State& state) {
  Screen screen;
  const DWORD lengths[] = {6, 3, 1, 3};
  const LOGBRUSH ink{BS_SOLID, kInk, 0};
  CPen pen(PS_GEOMETRIC | PS_USERSTYLE, static_cast<int>(state.range(1)), &ink, 4, lengths);
  screen.dc.SelectObject(&pen);
  drawAll(state, screen, segmentsOf(static_cast<double>(state.range(0)), 10000));
}

void WideLines(benchmark::State& state) {
  Screen screen;
  CPen pen(PS_GEOMETRIC, static_cast<int>(state.range(1)), kInk);
  screen.dc.SelectObject(&pen);
  drawAll(state, screen, segmentsOf(static_cast<double>(state.range(0)), 10000));
}

// Per segment of polylines of 100 points that wind at random, as curves do.
void Polylines(benchmark::State& state) {
  constexpr int kCount = 200;
  constexpr int kPoints = 100;
  Screen screen;
  CPen pen(PS_SOLID, 0, kInk);
  screen.dc.SelectObject(&pen);
  screen.dc.SetROP2(static_cast<int>(state.range(0)));
  std::mt19937 random(3);
  std::uniform_real_distribution<double> turn(-0.5, 0.5);
  std::vector<POINT> points;
  for (int i = 0; i < kCount; ++i) {
    double x = 300 + static_cast<double>(random() % 1300);
    double y = 300 + static_cast<double>(random() % 400);
    double angle = static_cast<double>(i);
    for (int k = 0; k < kPoints; ++k) {
      points.push_back({static_cast<int>(x), static_cast<int>(y)});
      angle += turn(random);
      x = std::clamp(x + 12 * std::cos(angle), 5.0, kWidth - 5.0);
      y = std::clamp(y + 12 * std::sin(angle), 5.0, kHeight - 5.0);
    }
  }
  for (auto _ : state)
    for (int i = 0; i < kCount; ++i)
      screen.dc.Polyline(points.data() + i * kPoints, kPoints);
  countLines(state, kCount * (kPoints - 1));
}

void Polygons(benchmark::State& state) {
  Screen screen;
  CBrush brush(kInk);
  screen.dc.SelectObject(&brush);
  std::vector<POINT> points;
  const double radius = static_cast<double>(state.range(0));
  for (int i = 0; i < 20; ++i)
    points.push_back({960 + static_cast<int>(radius * std::cos(i * M_PI / 10)),
                      540 + static_cast<int>(radius * std::sin(i * M_PI / 10))});
  for (auto _ : state)
    screen.dc.Polygon(points.data(), 20);
  countLines(state, 1);
}

void Ellipses(benchmark::State& state) {
  Screen screen;
  CBrush brush(kInk);
  screen.dc.SelectObject(&brush);
  const int radius = static_cast<int>(state.range(0));
  for (auto _ : state)
    screen.dc.Ellipse(960 - radius, 540 - radius, 960 + radius, 540 + radius);
  countLines(state, 1);
}

void Circles(benchmark::State& state) {
  Screen screen;
  const int radius = static_cast<int>(state.range(0));
  for (auto _ : state) {
    screen.dc.MoveTo(960 + radius, 540);
    screen.dc.AngleArc(960, 540, radius, 0, 360);
  }
  countLines(state, 1);
}

void WholePictureCopies(benchmark::State& state) {
  Screen from;
  Screen to;
  for (auto _ : state)
    to.dc.BitBlt(0, 0, kWidth, kHeight, &from.dc, 0, 0, static_cast<std::uint32_t>(state.range(0)));
  countLines(state, 1);
}

BENCHMARK(PlainBresenham)->Arg(20)->Arg(726);
BENCHMARK(ThinLines)->Arg(20)->Arg(726);
BENCHMARK(PlainBresenhamExclusiveOr)->Arg(20)->Arg(726);
BENCHMARK(ThinLinesExclusiveOr)->Arg(20)->Arg(726);
BENCHMARK(ThinLinesMappedNewPenEach)->Arg(100)->Arg(10000)->Arg(1000000);
BENCHMARK(DashedLines)->Args({20, 0})->Args({726, 0})->Args({20, 3});
BENCHMARK(WideLines)->Args({20, 3})->Args({726, 3})->Args({20, 40});
BENCHMARK(Polylines)->Arg(R2_COPYPEN)->Arg(R2_XORPEN);
BENCHMARK(Polygons)->Arg(20)->Arg(400);
BENCHMARK(Ellipses)->Arg(20)->Arg(400);
BENCHMARK(Circles)->Arg(20)->Arg(400)->Arg(1000000);
BENCHMARK(WholePictureCopies)->Arg(SRCCOPY)->Arg(SRCPAINT);

}  // namespace
