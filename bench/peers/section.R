# The section with R and ncdf4, one picture a time step.
#   Rscript section.R FILE VARIABLE WEST SOUTH EAST NORTH POINTS STEPS PICTURE-%02d.png
library(ncdf4)
given <- commandArgs(trailingOnly = TRUE)
variable <- given[2]
corners <- as.numeric(given[3:6])
points <- as.integer(given[7])
steps <- as.integer(given[8])

file <- nc_open(given[1])
dims <- file$var[[variable]]$dim
lons <- dims[[1]]$vals
lats <- dims[[2]]$vals
depths <- dims[[3]]$vals
nearest <- function(grid, wanted) sapply(wanted, function(at) which.min(abs(grid - at)))
i <- nearest(lons, seq(corners[1], corners[3], length.out = points))
j <- nearest(lats, seq(corners[2], corners[4], length.out = points))
for (step in seq_len(steps)) {
  section <- t(mapply(function(x, y) {
    ncvar_get(file, variable, start = c(x, y, 1, step), count = c(1, 1, -1, 1))
  }, i, j))
  png(sprintf(given[9], step), width = 1000, height = 600, type = "cairo")
  image(seq_len(points), -rev(depths), section[, rev(seq_along(depths))],
        col = hcl.colors(64, "Spectral", rev = TRUE), xlab = "point", ylab = "depth",
        main = paste(variable, "step", step))
  invisible(dev.off())
}
