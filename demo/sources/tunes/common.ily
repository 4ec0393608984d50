% Page layout shared by all tunes: A4, large print, nothing but title, author and music.
\language "nederlands"
#(set-default-paper-size "a4")
#(set-global-staff-size 25)

\paper {
  top-margin = 20\mm
  bottom-margin = 22\mm
  left-margin = 16\mm
  right-margin = 16\mm
  indent = 0
  print-page-number = ##f
  ragged-bottom = ##f
  ragged-last-bottom = ##f
  system-system-spacing.padding = #4
  markup-system-spacing.basic-distance = #16
  bookTitleMarkup = \markup \column {
    \fill-line { \abs-fontsize #30 \bold \fromproperty #'header:title }
    \vspace #0.7
    \fill-line { \null \abs-fontsize #15 \italic \fromproperty #'header:composer }
    \vspace #0.7
  }
}

\layout {
  \context {
    \Lyrics
    \override LyricHyphen.minimum-distance = #0.7
    \override LyricSpace.minimum-distance = #1
  }
}
