\version "2.24.1"
\include "common.ily"
song = "Silent Night"
by = "Franz Xaver Gruber"

tune = \relative c'' {
  \key c \major \time 6/8 \tempo 4. = 46
  g8.( a16) g8 e4. | g8.( a16) g8 e4. | d'4 d8 b4. | c4 c8 g4. |
  a4 a8 c8.( b16) a8 | g8. a16 g8 e4. | a4 a8 c8. b16 a8 | g8. a16 g8 e4. |
  d'4 d8 f8. d16 b8 | c4.( e) | c8.( g16) e8 g8. f16 d8 | c2. \bar "|."
}

harmony = \chordmode {
  c2. c g:7 c f c f c g:7 c c4. g:7 c2.
}

words = \lyricmode {
  Si -- lent night, ho -- ly night, all is calm, all is bright
  round yon vir -- gin mo -- ther and child,
  ho -- ly in -- fant so ten -- der and mild,
  sleep in hea -- ven -- ly peace, __
  sleep in hea -- ven -- ly peace.
}

cc = { c8 g c' e' c' g }
gg = { g,8 d g b g d }
ff = { f,8 c f a f c }
bass = {
  \key c \major \time 6/8
  \cc \cc \gg \cc \ff \cc \ff \cc \gg \cc c8 g c' g, d g | <c g>2.
}
\include "sheet.ily"
