\version "2.24.1"
\include "common.ily"
song = "Greensleeves"
by = "English, 16th century"

tune = \relative c'' {
  \key a \minor \time 6/8 \tempo 4. = 50
  \partial 8 a8 |
  c4 d8 e8. f16 e8 | d4 b8 g8. a16 b8 | c4 a8 a8. gis16 a8 | b4 gis8 e4 a8 |
  c4 d8 e8. f16 e8 | d4 b8 g8. a16 b8 | c8. b16 a8 gis8. fis16 gis8 | a4. a4. \bar "||"
  g'4. g8. fis16 e8 | d4 b8 g8. a16 b8 | c4 a8 a8. gis16 a8 | b4 gis8 e4. |
  g'4. g8. fis16 e8 | d4 b8 g8. a16 b8 | c8. b16 a8 gis8. fis16 gis8 | a4.~ a4 \bar "|."
}

harmony = \chordmode {
  \partial 8 s8
  a2.:m g a:m e a:m g a4.:m e a2.:m
  c g a:m e c g a4.:m e a4.:m~ a4:m
}

words = \lyricmode { }

am = { a,8 e a c' a e }
gg = { g,8 d g b g d }
ee = { e,8 b, e gis e b, }
cc = { c8 g c' e' c' g }
ae = { a,8 e a e, b, e }
bass = {
  \key a \minor \time 6/8 \partial 8 r8 |
  \am \gg \am \ee \am \gg \ae a,8 e a a,4. |
  \cc \gg \am \ee \cc \gg \ae a,8 e a a,4
}
\include "sheet.ily"
