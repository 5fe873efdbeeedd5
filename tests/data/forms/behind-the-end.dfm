object A: TA
end
what stands here is kept
