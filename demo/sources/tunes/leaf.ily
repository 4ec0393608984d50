% A single page: melody, chord names and words.
\header { title = \song composer = \by tagline = ##f }

\paper { page-count = 1 }

\score {
  <<
    \new ChordNames { \set chordChanges = ##t \harmony }
    \new Staff \new Voice = "tune" \tune
    \new Lyrics \lyricsto "tune" \words
  >>
  \layout { }
}
