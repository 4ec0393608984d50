\version "2.24.1"
\include "common.ily"
% An empty sheet: ten staves without clef or bar line.
\header { tagline = ##f }
\score {
  \new Staff \repeat unfold 10 { s1 \break }
  \layout {
    \context { \Score \omit BarNumber }
    \context {
      \Staff
      \remove "Clef_engraver"
      \remove "Time_signature_engraver"
      \remove "Bar_engraver"
    }
  }
}
