\version "2.24.1"
\include "common.ily"
song = "Auld Lang Syne"
by = "Words by Robert Burns"

tune = \relative c' {
  \key f \major \time 4/4 \tempo 4 = 96
  \partial 4 c4 |
  f4. f8 f4 a | g4. f8 g4 a | f4. f8 a4 c | d2. d4 |
  c4. a8 a4 f | g4. f8 g4 a8( g) | f4. d8 d4 c | f2. d'4 |
  c4.( a8) a4( f) | g4. f8 g4 d' | c4.( a8) a4( c) | d2. d4 |
  c4. a8 a4 f | g4. f8 g4 a8( g) | f4.( d8) d4( c) | f2. \bar "|."
}

harmony = \chordmode {
  \partial 4 s4
  f1 c:7 f bes f c:7 bes2 c:7 f1
  f c:7 f bes f c:7 bes2 c:7 f2.
}

words = \lyricmode {
  Should auld ac -- quain -- tance be for -- got, and ne -- ver brought to mind?
  Should auld ac -- quain -- tance be for -- got, and days of auld lang syne?
  For auld lang syne, my dear, for auld lang syne,
  we'll tak a cup o' kind -- ness yet, for auld lang syne.
}

verse = {
  f2 c | c e | f a, | bes, d | f2 c | c e | bes,2 c |
}
bass = {
  \key f \major \time 4/4 \partial 4 r4 |
  \verse f,2 f4 r | \verse f,2.
}
\include "sheet.ily"
