<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Tools\Template\Template;

/** A byte order mark, which comes out in the page. */
final readonly class ByteOrderMark implements Rule
{
    public function check(Template $template): iterable
    {
        if (str_starts_with($template->text, "\u{FEFF}")) {
            yield 0 => 'The file begins with a byte order mark, which comes out in the page: save it without';
        }
    }
}
