% Left page: melody, chord names and words. Right page: melody over a bass.
\header { title = \song composer = \by tagline = ##f }

\score {
  <<
    \new ChordNames { \set chordChanges = ##t \harmony }
    \new Staff \new Voice = "tune" \tune
    \new Lyrics \lyricsto "tune" \words
  >>
  \layout {
    #(layout-set-staff-size 29)
    \context { \Lyrics \override LyricText.font-size = #1 }
  }
}

\pageBreak
\markup \fill-line {
  \abs-fontsize #19 \bold \song
  \abs-fontsize #15 \italic "with bass"
}
\score {
  \new PianoStaff <<
    \new Staff \tune
    \new Staff { \clef bass \bass }
  >>
  \layout { }
}
\score {
  \unfoldRepeats << \new Staff \tune \new Staff \bass >>
  \midi { }
}
