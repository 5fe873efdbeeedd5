object Käse: TKäse
  Überschrift = 'Grüße'
end
