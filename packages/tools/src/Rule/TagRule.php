<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Tools\Template\Template;

/** A rule that looks at one tag at a time. */
abstract readonly class TagRule implements Rule
{
    final public function check(Template $template): iterable
    {
        foreach ($template->tags as $tag) {
            $message = $this->messageFor($tag, $template);
            if ($message !== null) {
                yield $tag->offset => $message;
            }
        }
    }

    /** What is wrong with the tag and what to write instead; null when nothing is. */
    abstract protected function messageFor(Tag $tag, Template $template): ?string;
}
